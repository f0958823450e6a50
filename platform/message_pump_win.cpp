#include "platform/message_pump_win.h"

#include <vector>

namespace {
std::vector<HWND> navigationWindows;

void Dispatch(MSG& message) {
    // The dialog keys go to the window whose control the message is for.
    for (HWND window : navigationWindows) {
        if (message.hwnd != window && !IsChild(window, message.hwnd)) continue;
        if (IsWindow(window) && IsDialogMessageA(window, &message)) return;
    }
    TranslateMessage(&message);
    DispatchMessageA(&message);
}
}  // namespace

void AddKeyboardNavigationWindow(HWND window) { navigationWindows.push_back(window); }

bool PumpPendingMessages() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return false;
        }
        Dispatch(message);
    }
    return true;
}

int RunMessageLoop() {
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) Dispatch(message);
    return static_cast<int>(message.wParam);
}

void RunModalLoop(HWND dialog, const bool& open) {
    MSG message;
    while (open) {
        BOOL got = GetMessageA(&message, nullptr, 0, 0);
        if (got == -1) break;
        if (got == 0) {
            PostQuitMessage(static_cast<int>(message.wParam));
            break;
        }
        if (IsDialogMessageA(dialog, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
}
