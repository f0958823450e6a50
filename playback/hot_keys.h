#pragma once
// The hot keys polled by the main window's timers, and the pointer display.
struct App;

inline constexpr int kVkPause = 121;     // F10
inline constexpr int kVkNextStep = 122;  // F11
inline constexpr int kVkCopyPointer = 123;  // F12

// tmrHotkey's tick: F12 copies the pointer position into the selected rows,
// F10 pauses until the user answers a box. Idle only.
void OnHotkeyTimer(App& app);
// tmrShiftNext's tick: F11 moves a single selection on by one row.
void OnShiftNextTimer(App& app);
// tmrCursorPos's tick: the pointer position in status-bar panels 2 and 3.
void OnCursorTimer(App& app);
