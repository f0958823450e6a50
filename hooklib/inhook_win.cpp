// InHook.dll: the recorder's system-wide mouse and keyboard hook procedures.
// The system maps this library into every process that takes input while a
// recording runs and calls the hooks there; each event is passed on untouched
// and posted to the program's receiver window as an ordinary mouse or key
// message, with the pointer's screen position where a mouse message carries
// its position.
#include <windows.h>

#define SHARED_BETWEEN_PROCESSES __attribute__((section(".shared"), shared))

namespace {

// The press that may become the first half of a double click.
struct LastPress {
    UINT message;
    DWORD tick;
    POINT where;
};

// One copy for every process the library is mapped into, where the hooks
// run: set by the program through InitMouse and InitKeys, read in the others.
HWND mouseReceiver SHARED_BETWEEN_PROCESSES = nullptr;
HWND keyReceiver SHARED_BETWEEN_PROCESSES = nullptr;
HHOOK mouseHook SHARED_BETWEEN_PROCESSES = nullptr;
HHOOK keyHook SHARED_BETWEEN_PROCESSES = nullptr;
LastPress lastPress SHARED_BETWEEN_PROCESSES = {0, 0, {0, 0}};

bool IsPress(UINT message) { return message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN; }

bool WithinDoubleClick(const LastPress& first, const LastPress& second) {
    return first.message == second.message && second.tick - first.tick <= GetDoubleClickTime() &&
           labs(second.where.x - first.where.x) <= GetSystemMetrics(SM_CXDOUBLECLK) / 2 &&
           labs(second.where.y - first.where.y) <= GetSystemMetrics(SM_CYDOUBLECLK) / 2;
}

// Windows without double clicks in their class get a second press as a plain
// press; the receiver must see a double click either way.
UINT WithDoubleClicks(UINT message, POINT where) {
    if (message == WM_LBUTTONDBLCLK || message == WM_RBUTTONDBLCLK) {
        lastPress = {};
        return message;
    }
    if (!IsPress(message)) return message;
    LastPress press{message, GetTickCount(), where};
    if (WithinDoubleClick(lastPress, press)) {
        lastPress = {};
        return message + (WM_LBUTTONDBLCLK - WM_LBUTTONDOWN);
    }
    lastPress = press;
    return message;
}

// The client-area message of a mouse message, also of one over a window's
// frame or caption; 0 for the wheel and anything else not forwarded.
UINT ClientMessage(WPARAM message) {
    if (message >= WM_NCMOUSEMOVE && message <= WM_NCMBUTTONDBLCLK) return message - WM_NCMOUSEMOVE + WM_MOUSEMOVE;
    if (message >= WM_MOUSEMOVE && message <= WM_MBUTTONDBLCLK) return message;
    return 0;
}

}  // namespace

// Exported by name through the .def file, which variants for tests can leave
// an entry out of.
extern "C" {

void __stdcall InitMouse(HWND receiver, HHOOK hook) {
    mouseReceiver = receiver;
    mouseHook = hook;
    lastPress = {};
}

void __stdcall InitKeys(HWND receiver, HHOOK hook) {
    keyReceiver = receiver;
    keyHook = hook;
}

LRESULT CALLBACK MouseProc(int code, WPARAM wParam, LPARAM lParam) {
    // HC_NOREMOVE: the same event is looked at again when it is taken.
    if (code == HC_ACTION) {
        const auto& event = *reinterpret_cast<const MOUSEHOOKSTRUCT*>(lParam);
        if (UINT message = ClientMessage(wParam)) {
            PostMessageA(mouseReceiver, WithDoubleClicks(message, event.pt), 0,
                         MAKELPARAM(static_cast<short>(event.pt.x), static_cast<short>(event.pt.y)));
        }
    }
    return CallNextHookEx(mouseHook, code, wParam, lParam);
}

LRESULT CALLBACK KeyProc(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HC_ACTION) {
        // Bit 31, the transition state, is set for a release.
        UINT message = (static_cast<DWORD>(lParam) & 0x80000000u) ? WM_KEYUP : WM_KEYDOWN;
        PostMessageA(keyReceiver, message, wParam, lParam);
    }
    return CallNextHookEx(keyHook, code, wParam, lParam);
}

}  // extern "C"
