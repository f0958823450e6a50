#pragma once
// Editing the steps in place: a click on a cell opens the editor of its
// column over it.
struct App;

// A button went down on the grid: `row` is the 1-based row under the pointer
// (0 for none) and `xTwips` the pointer's place from the left edge of the
// first column. Finds the cell to edit.
void GridMouseDown(App& app, double xTwips, int row);
// The grid's click: opens the editor of the cell found at the press.
void GridClick(App& app);
