#pragma once
// The window-state rules applied when the main window paints.
struct App;

// Runs every time the main window paints: keeps it topmost when "OnTop" is
// on, and when minimised unlocks the commands, hides the settings panel and
// lets other windows above it.
void ApplyWindowState(App& app);
