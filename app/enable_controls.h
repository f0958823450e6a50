#pragma once
// Locking the main window's commands while a run, a recording or a dialog is
// active, and the window-state rules applied when the main window paints.
struct App;

// Sets the enabled state of the "settings" toolbar button and the play and
// record buttons; with `all` also of the other toolbar buttons except "exit",
// the grid and the status bar.
void EnableControls(App& app, bool enabled, bool all);

// Runs every time the main window paints: keeps it topmost when "OnTop" is
// on, and when minimised unlocks the commands, hides the settings panel and
// lets other windows above it.
void ApplyWindowState(App& app);
