#include "app/receiver_window_win.h"

namespace {
constexpr const char* kClassName = "KlickwerkReceiver";
}  // namespace

bool ReceiverWindow::Create(HWND parent) {
    if (!RegisterWindowClass(kClassName, nullptr, nullptr)) return false;
    return CreateWindowOfClass(kClassName, "IHRec", WS_CHILD, 0, 0, 0, 0, 0, parent) != nullptr;
}

LRESULT ReceiverWindow::HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (onInput && onInput(message, wParam, lParam)) return 0;
    return DefWindowProcA(hwnd, message, wParam, lParam);
}
