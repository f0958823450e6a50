#pragma once
// Return and Escape pressed in a control of a panel on the main window. The
// window's dialog keys would take them (Return for the default button, Escape
// for cancel), so the control hands them to the panel instead; their
// characters, which would only beep, are dropped.
#include <functional>

#include "platform/win32.h"

class PanelKeys {
public:
    PanelKeys() = default;
    PanelKeys(const PanelKeys&) = delete;
    PanelKeys& operator=(const PanelKeys&) = delete;
    ~PanelKeys();

    // `onKey` gets the code of Return or Escape and answers whether it used the key.
    void Attach(HWND control, std::function<bool(int keyCode)> onKey);

private:
    static LRESULT CALLBACK Proc(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                 DWORD_PTR self);

    HWND control_ = nullptr;
    std::function<bool(int keyCode)> onKey_;
};
