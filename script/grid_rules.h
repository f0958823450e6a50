#pragma once
// Adding and numbering rows of the step grid.
struct App;
class StepGrid;

// The first selected row; 0 when none is.
int FirstSelectedRow(const StepGrid& grid);
// Counts from the first row and stops at two, as the list commands do.
bool MoreThanOneSelected(const StepGrid& grid);
// Adds one new row with the values of a new step (at the end, or before the
// selected row) and selects it; marked "NEW" while the recorder is idle.
void LstAddNew(App& app, bool atEnd, bool deselectOthers);
// Sets every "#" to its 1-based position and shows the row count in panel 6.
void Renumber(App& app);
