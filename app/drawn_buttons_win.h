#pragma once
// The main window's buttons that the program draws itself: cmdRepeat, whose
// look shows the toggle (dark green with white text while whole-script
// repetition is on), and cmdRecOptions, a drop-down arrow that needs no
// symbol font.
#include "platform/win32.h"

inline constexpr COLORREF kRepeatOnColour = 32768;  // RGB(0, 128, 0)

// WM_DRAWITEM of the two buttons.
void DrawRepeatButton(const DRAWITEMSTRUCT& item, bool on);
void DrawArrowButton(const DRAWITEMSTRUCT& item);
