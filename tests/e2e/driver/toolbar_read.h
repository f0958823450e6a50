#pragma once
// Reading another program's toolbar: each button's command id, caption,
// state and place on the screen.
#include <windows.h>

#include <string>
#include <vector>

struct ToolbarButtonInfo {
    int id = 0;
    std::string text;
    bool enabled = false;
    bool pressed = false;
    bool dropDown = false;
    RECT rect{};  // screen pixels
};

bool ReadToolbar(HWND toolbar, std::vector<ToolbarButtonInfo>& buttons);
