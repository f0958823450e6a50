#pragma once
// MessageBoxA, owned by the main window once it exists.
#include "core/message_boxes.h"
#include "platform/win32.h"

class MessageBoxesWin : public MessageBoxes {
public:
    // Boxes shown before any window exists (the second-instance question) have no owner.
    void SetOwner(HWND owner) { owner_ = owner; }
    BoxAnswer Show(const std::string& text, const std::string& title, BoxStyle style) override;

private:
    HWND owner_ = nullptr;
};
