#include "key_press.h"

#include <timeapi.h>

namespace {

double Milliseconds(const LARGE_INTEGER& from, const LARGE_INTEGER& to) {
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    return static_cast<double>(to.QuadPart - from.QuadPart) * 1000.0 / static_cast<double>(frequency.QuadPart);
}

double Since(const LARGE_INTEGER& start) {
    LARGE_INTEGER now;
    QueryPerformanceCounter(&now);
    return Milliseconds(start, now);
}

}  // namespace

KeyReaction PressKeyUntil(BYTE virtualKey, const std::function<bool()>& reacted, DWORD timeoutMs) {
    // Fine sleeps, so the poll adds about a millisecond at most.
    timeBeginPeriod(1);
    KeyReaction reaction;
    LARGE_INTEGER start;
    QueryPerformanceCounter(&start);
    keybd_event(virtualKey, 0, 0, 0);
    while (Since(start) < timeoutMs) {
        if (reacted()) {
            reaction.seen = true;
            reaction.milliseconds = Since(start);
            break;
        }
        Sleep(1);
    }
    keybd_event(virtualKey, 0, KEYEVENTF_KEYUP, 0);
    timeEndPeriod(1);
    return reaction;
}
