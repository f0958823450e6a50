#pragma once
// mnulstMain, the step grid's context menu, popped up at the pointer.
#include <optional>

#include "core/main_view.h"
#include "platform/win32.h"

// Shows the menu as `menu` fits it and returns the entry chosen. The click
// that closes the menu without a choice is not passed on to `grid`.
std::optional<GridCommand> PopUpGridMenu(HWND owner, HWND grid, const GridMenu& menu);
