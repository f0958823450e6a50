#pragma once
// The pattern every window class of the program follows: the object is
// stored with its window at creation and each message goes to the derived
// class's HandleMessage, which unpacks it into typed handlers. No exception
// crosses the window procedure.
#include <exception>

#include "platform/failure_trace_win.h"
#include "platform/win32.h"

template <class Derived>
class BaseWindow {
public:
    BaseWindow() = default;
    BaseWindow(const BaseWindow&) = delete;
    BaseWindow& operator=(const BaseWindow&) = delete;

    HWND Handle() const { return hwnd_; }

protected:
    ~BaseWindow() {
        if (hwnd_) DestroyWindow(hwnd_);
    }

    static bool RegisterWindowClass(const char* className, HICON icon, HBRUSH background) {
        WNDCLASSEXA windowClass{};
        windowClass.cbSize = sizeof windowClass;
        windowClass.lpfnWndProc = &BaseWindow::WindowProc;
        windowClass.hInstance = GetModuleHandleA(nullptr);
        windowClass.hIcon = icon;
        windowClass.hIconSm = icon;
        windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
        windowClass.hbrBackground = background;
        windowClass.lpszClassName = className;
        if (RegisterClassExA(&windowClass) || GetLastError() == ERROR_CLASS_ALREADY_EXISTS) return true;
        ReportLastError("RegisterClassExA");
        return false;
    }

    HWND CreateWindowOfClass(const char* className, const char* title, DWORD style, DWORD exStyle, int x, int y,
                             int width, int height, HWND parent) {
        HWND window = CreateWindowExA(exStyle, className, title, style, x, y, width, height, parent, nullptr,
                                      GetModuleHandleA(nullptr), this);
        if (!window) ReportLastError("CreateWindowExA");
        return window;
    }

    HWND hwnd_ = nullptr;

private:
    static LRESULT CALLBACK WindowProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
        BaseWindow* self = nullptr;
        if (message == WM_NCCREATE) {
            self = static_cast<BaseWindow*>(reinterpret_cast<CREATESTRUCTA*>(lParam)->lpCreateParams);
            self->hwnd_ = hwnd;
            SetWindowLongPtrA(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
        } else {
            self = reinterpret_cast<BaseWindow*>(GetWindowLongPtrA(hwnd, GWLP_USERDATA));
        }
        if (!self) return DefWindowProcA(hwnd, message, wParam, lParam);
        if (message == WM_NCDESTROY) {
            SetWindowLongPtrA(hwnd, GWLP_USERDATA, 0);
            self->hwnd_ = nullptr;
        }
        // The behaviour traps and logs its own errors; whatever still escapes
        // is traced here, as it must not unwind through the system's code.
        try {
            return static_cast<Derived*>(self)->HandleMessage(hwnd, message, wParam, lParam);
        } catch (const std::exception& error) {
            ReportFailure("WindowProc", error.what(), 51);
        } catch (...) {
            ReportFailure("WindowProc", "Unknown error", 51);
        }
        return DefWindowProcA(hwnd, message, wParam, lParam);
    }
};

// A visible child control of `parent` with its control id, placed later.
inline HWND ChildControl(HWND parent, const char* className, const char* text, DWORD style, int id) {
    return CreateWindowExA(0, className, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, parent,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleA(nullptr), nullptr);
}

// Gives a window the outer size that holds a client area of this size and
// centres it over its owner.
inline void CentreOverOwner(HWND window, HWND owner, int clientWidth, int clientHeight) {
    RECT outer{0, 0, clientWidth, clientHeight};
    AdjustWindowRectEx(&outer, static_cast<DWORD>(GetWindowLongPtrA(window, GWL_STYLE)), FALSE,
                       static_cast<DWORD>(GetWindowLongPtrA(window, GWL_EXSTYLE)));
    RECT ownerRect{};
    GetWindowRect(owner, &ownerRect);
    int width = outer.right - outer.left;
    int height = outer.bottom - outer.top;
    SetWindowPos(window, nullptr, (ownerRect.left + ownerRect.right - width) / 2,
                 (ownerRect.top + ownerRect.bottom - height) / 2, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

// Moves and sizes a child in its parent's client pixels, keeping its z-order.
inline void PlaceChild(HWND window, int left, int top, int width, int height) {
    SetWindowPos(window, nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}
