#pragma once
// cmdRepeat is drawn by the program so that its look shows the toggle:
// dark green with white text while whole-script repetition is on.
#include "platform/win32.h"

inline constexpr COLORREF kRepeatOnColour = 32768;  // RGB(0, 128, 0)

// WM_DRAWITEM of the button.
void DrawRepeatButton(const DRAWITEMSTRUCT& item, bool on);
