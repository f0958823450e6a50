#pragma once
// The DPI a window is shown at, and the program's font for it.
#include "platform/win32.h"

// GetDpiForWindow where the system has it, else the screen's LOGPIXELSX.
int WindowDpi(HWND window);

// The system's message font at `dpi` (the font of message boxes and menus).
HFONT CreateMessageFont(int dpi);

// WM_DPICHANGED, which older headers lack.
inline constexpr UINT kWmDpiChanged = 0x02E0;
