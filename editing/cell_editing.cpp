#include "editing/cell_editing.h"

#include "core/app.h"
#include "core/basic_text.h"
#include "core/status_line.h"
#include "editing/column_widths.h"
#include "recorder/text_input.h"
#include "script/grid_rules.h"
#include "script/step_grid.h"

void GridMouseDown(App& app, double xTwips, int row) {
    CellEdit& edit = app.cellEdit;
    if (row < 1) {
        edit.row = edit.column = -1;
        return;
    }
    NewWidth(app);
    // A point on the border between two columns belongs to the left one.
    long left = 0;
    for (int column = 0; column < kColumnCount; ++column) {
        long right = left + CLng(Val(app.columnWidths[column]));
        if (left <= xTwips && xTwips <= right) {
            edit.column = column;
            edit.columnLeft = left;
            return;
        }
        left = right;
    }
}

void GridClick(App& app) {
    const CellEdit& edit = app.cellEdit;
    if (edit.column < kColX) return;
    StepGrid& grid = app.ui.grid;
    if (grid.RowCount() == 0) {
        ShowStatus(app, "List is empty.");
        return;
    }
    int row = FirstSelectedRow(grid);
    if (!app.ui.main.FrameVisible(Frame::Main) || row < 1) return;
    if (edit.column == kColAdditional) {
        app.cellEdit.row = row;
        EditKeystrokeText(app, row);
        app.cellEdit.row = app.cellEdit.column = -1;
    }
}
