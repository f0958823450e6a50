#include "playback/hot_keys.h"

#include "core/app.h"
#include "script/grid_rules.h"
#include "script/step_grid.h"

namespace {

bool Pressed(App& app, int virtualKey) { return IsKeyDown(app.os.input, virtualKey); }

void CopyPointerIntoSelection(App& app) {
    StepGrid& grid = app.ui.grid;
    for (int row = 1; row <= grid.RowCount(); ++row) {
        if (!grid.Selected(row)) continue;
        grid.SetCell(row, kColX, app.ui.main.PanelText(2));
        grid.SetCell(row, kColY, app.ui.main.PanelText(3));
        grid.SetChecked(row, true);
        grid.SetMark(row, "");
    }
}

// The one selected row, or 0 when none or several are selected.
int SingleSelectedRow(App& app) {
    StepGrid& grid = app.ui.grid;
    int found = 0;
    for (int row = 1; row <= grid.RowCount(); ++row) {
        if (!grid.Selected(row)) continue;
        if (found != 0) return 0;
        found = row;
    }
    return found;
}

// The box's own message loop keeps this timer ticking, so a held F10 would
// stack boxes that the run then waits on one by one.
void ShowPauseBox(App& app) {
    app.pauseBoxShown = true;
    app.ui.boxes.Show("Paused. Press OK to resume.", "PAUSED", BoxStyle::Plain);
    app.pauseBoxShown = false;
}

}  // namespace

void OnHotkeyTimer(App& app) {
    if (app.ui.main.RecordCaption() != "RECORD") return;
    if (Pressed(app, kVkCopyPointer)) CopyPointerIntoSelection(app);
    if (Pressed(app, kVkPause) && !app.pauseBoxShown) ShowPauseBox(app);
}

void OnShiftNextTimer(App& app) {
    if (!Pressed(app, kVkNextStep)) return;
    int row = SingleSelectedRow(app);
    if (row == 0) return;
    StepGrid& grid = app.ui.grid;
    if (row < grid.RowCount()) {
        grid.SetSelected(row, false);
        grid.SetSelected(row + 1, true);
    } else {
        LstAddNew(app, true, true);
    }
}
