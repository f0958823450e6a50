#pragma once
// MessageBoxA, owned by the main window once it exists, and by the splash
// while that is shown: the splash stays on top, and a box behind it would
// leave the program looking hung.
#include "core/message_boxes.h"
#include "platform/win32.h"

class MessageBoxesWin : public MessageBoxes {
public:
    // Boxes shown before any window exists (the second-instance question) have no owner.
    void SetOwner(HWND owner) { owner_ = owner; }
    void SetSplash(HWND splash) { splash_ = splash; }
    BoxAnswer Show(const std::string& text, const std::string& title, BoxStyle style) override;

private:
    HWND owner_ = nullptr;
    HWND splash_ = nullptr;
};
