#pragma once
// The hot keys polled by the main window's timers.
#include "platform/win_constants.h"

struct App;

inline constexpr int kVkPause = win::kVkF10;
inline constexpr int kVkNextStep = win::kVkF11;
inline constexpr int kVkCopyPointer = win::kVkF12;

// tmrHotkey's tick: F12 copies the pointer position into the selected rows,
// F10 pauses until the user answers a box. Idle only.
void OnHotkeyTimer(App& app);
// tmrShiftNext's tick: F11 moves a single selection on by one row.
void OnShiftNextTimer(App& app);
