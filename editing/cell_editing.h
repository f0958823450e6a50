#pragma once
// Editing the steps in place: a click on a cell opens the editor of its
// column over it (txtCell over the numbers, cmbDrop over "Button", the
// keystroke-text editor for "Additional"); the value is checked, normalised
// and written back, and the working copy saved.
struct App;

// A button went down on the grid: `row` is the 1-based row under the pointer
// (0 for none) and `xTwips` the pointer's place from the left edge of the
// first column. Finds the cell to edit.
void GridMouseDown(App& app, double xTwips, int row);
// The grid's click: opens the editor of the cell found at the press.
void GridClick(App& app);
// Opens the editor of `column` (from 0) over the selected step.
void EditSelectedStep(App& app, int column);

// txtCell's events. A key returns true when it is swallowed.
void CellTextChanged(App& app);
bool CellTextKey(App& app, int keyCode);
void CellTextFocusLost(App& app);
// cmbDrop's events.
void DropDownSelected(App& app);
bool DropDownKey(App& app, int keyCode);
void DropDownFocusLost(App& app);

// Checks txtCell's text for the column under edit; may correct the text.
// True when it may be committed.
bool CheckCell(App& app);
// Commits the open editor's value into its row, closes the editor and saves
// the working copy.
void CellUpdate(App& app);
