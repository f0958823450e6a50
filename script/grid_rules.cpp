#include "script/grid_rules.h"

#include <string>

#include "core/app.h"
#include "core/error_log.h"
#include "core/runtime_error.h"
#include "core/vocabulary.h"
#include "script/step_grid.h"

namespace {

constexpr int kObjectNotSet = 91;

void FillNewStep(StepGrid& grid, int row) {
    grid.SetCell(row, kColNumber, std::to_string(row));
    grid.SetCell(row, kColX, "-1");
    grid.SetCell(row, kColY, "-1");
    grid.SetCell(row, kColButton, kClickActions[0]);
    grid.SetCell(row, kColMins, "0");
    grid.SetCell(row, kColSecs, "0");
    grid.SetCell(row, kColRepeat, "0");
}

}  // namespace

bool MoreThanOneSelected(const StepGrid& grid) {
    int selected = 0;
    for (int row = 1; row <= grid.RowCount() && selected < 2; ++row) {
        if (grid.Selected(row)) ++selected;
    }
    return selected >= 2;
}

int FirstSelectedRow(const StepGrid& grid) {
    for (int row = 1; row <= grid.RowCount(); ++row) {
        if (grid.Selected(row)) return row;
    }
    return 0;
}

void LstAddNew(App& app, bool atEnd, bool deselectOthers) {
    Trapped(app, "lstAddNew", [&] {
        StepGrid& grid = app.ui.grid;
        int row = atEnd ? grid.RowCount() + 1 : FirstSelectedRow(grid);
        if (row == 0) throw RuntimeError(kObjectNotSet, "Object variable or With block variable not set");
        grid.InsertRow(row);
        FillNewStep(grid, row);
        // Rows added while recording are real steps at once; others wait for an edit.
        if (app.ui.main.RecordCaption() == "RECORD") grid.SetMark(row, "NEW");
        grid.SetSelected(row, true);
        if (!deselectOthers || !MoreThanOneSelected(grid)) return;
        for (int other = 1; other <= grid.RowCount(); ++other) {
            if (other != row) grid.SetSelected(other, false);
        }
    });
}

void Renumber(App& app) {
    StepGrid& grid = app.ui.grid;
    for (int row = 1; row <= grid.RowCount(); ++row) grid.SetCell(row, kColNumber, std::to_string(row));
    app.ui.main.SetPanelText(6, std::to_string(grid.RowCount()));
}
