#include "platform/platform_win.h"

#include "platform/control_text_win.h"

namespace {
HWND Hwnd(WindowHandle window) { return reinterpret_cast<HWND>(window); }
WindowHandle Handle(HWND window) { return reinterpret_cast<WindowHandle>(window); }
}  // namespace

WindowHandle WinWindows::FindByTitle(const std::string& title) { return Handle(FindWindowA(nullptr, title.c_str())); }

WindowHandle WinWindows::Foreground() { return Handle(GetForegroundWindow()); }

bool WinWindows::SetForeground(WindowHandle window) { return SetForegroundWindow(Hwnd(window)) != 0; }

bool WinWindows::Show(WindowHandle window, int showCommand) { return ShowWindow(Hwnd(window), showCommand) != 0; }

bool WinWindows::SetPos(WindowHandle window, WindowHandle insertAfter, int x, int y, int width, int height,
                        unsigned flags) {
    return SetWindowPos(Hwnd(window), Hwnd(insertAfter), x, y, width, height, flags) != 0;
}

Rect WinWindows::GetRect(WindowHandle window) {
    RECT rect{};
    GetWindowRect(Hwnd(window), &rect);
    return {rect.left, rect.top, rect.right, rect.bottom};
}

bool WinWindows::Post(WindowHandle window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam) {
    return PostMessageA(Hwnd(window), message, wParam, lParam) != 0;
}

std::string WinWindows::TitleAt(Point point) {
    HWND window = WindowFromPoint(POINT{point.x, point.y});
    if (!window) return "";
    return WindowTextOf(window);
}


void WinWindows::ShowWaitPointer(bool waiting) { SetCursor(LoadCursorA(nullptr, waiting ? IDC_WAIT : IDC_ARROW)); }
