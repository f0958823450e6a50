#pragma once
// Top-level windows of any program, addressed by opaque handles (0 = none).
#include <cstdint>
#include <string>

#include "platform/input_device.h"

using WindowHandle = std::uintptr_t;

struct Rect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
};

class WindowSystem {
public:
    virtual ~WindowSystem() = default;
    virtual WindowHandle FindByTitle(const std::string& title) = 0;
    virtual WindowHandle Foreground() = 0;
    virtual bool SetForeground(WindowHandle window) = 0;
    virtual bool Show(WindowHandle window, int showCommand) = 0;
    virtual bool SetPos(WindowHandle window, WindowHandle insertAfter, int x, int y, int width,
                        int height, unsigned flags) = 0;
    virtual Rect GetRect(WindowHandle window) = 0;
    virtual bool Post(WindowHandle window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam) = 0;
    // The title of the window at a screen point (WindowFromPoint): "" when
    // none is there or it has no title.
    virtual std::string TitleAt(Point point) = 0;
    // The hourglass in place of the pointer while the program is busy, and
    // the arrow again.
    virtual void ShowWaitPointer(bool waiting) = 0;
};
