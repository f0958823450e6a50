#pragma once
// The commands of the grid's context menu mnulstMain, which change the steps
// as a whole or by selection.
#include "core/main_view.h"

struct App;

// The right button went up over the grid with `row` (from 1; 0 for none)
// under the pointer: fits the menu to the place, shows it and runs the entry
// chosen.
void OpenGridMenu(App& app, int row);
// What the menu offers with `row` under the pointer.
GridMenu FitGridMenu(const App& app, int row);
void RunGridCommand(App& app, GridCommand command);
// A key pressed in the grid: Delete removes the selected steps, F2 edits the
// selected step's first cell, X.
void GridKey(App& app, int keyCode);
