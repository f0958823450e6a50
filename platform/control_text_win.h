#pragma once
// The texts of the program's own controls, read whole.
#include <string>

#include "platform/win32.h"

// GetWindowTextA into a buffer of the text's length plus one.
std::string WindowTextOf(HWND window);
// The entry a drop-down list shows; "" when none is chosen.
std::string ComboChoice(HWND combo);
