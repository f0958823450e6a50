#pragma once
#include <string>

struct App;

// Runs a window command ("%winmin Untitled - Editor", "%winmov Calc; 300,200")
// on the top-level window with that title; `x` and `y` are the step's cells,
// the new left and top edge for "%winmov" (-1 keeps the current one).
void WinCommand(App& app, const std::string& text, int x, int y);
