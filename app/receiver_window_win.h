#pragma once
// IHRec: the main window's hidden receiver. The hook library turns every
// captured mouse and key event into an ordinary mouse or key message for it;
// the recorder answers them through `onInput`.
#include <functional>

#include "platform/base_window_win.h"

class ReceiverWindow : public BaseWindow<ReceiverWindow> {
public:
    bool Create(HWND parent);
    // Returns true when the message was used.
    std::function<bool(UINT message, WPARAM wParam, LPARAM lParam)> onInput;

    LRESULT HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
};
