#include "editing/step_count.h"

#include <string>

#include "core/app.h"
#include "core/basic_text.h"
#include "core/error_log.h"
#include "core/status_line.h"
#include "platform/win_constants.h"
#include "script/grid_rules.h"
#include "script/script_file.h"
#include "script/step_grid.h"

namespace {

constexpr const char* kNotANumber = "Must be a number.";

// fraSteps and fraStopKey both take the grid frame's place, so only one of
// them is shown at a time.
void ShowStepCount(App& app, bool open) {
    MainView& view = app.ui.main;
    view.SetFrameVisible(Frame::Main, !open);
    if (open) view.SetFrameVisible(Frame::StopKey, false);
    view.SetFrameVisible(Frame::Steps, open);
}

// Adds default steps at the end until the grid has `count` rows; false when
// a row could not be added (LstAddNew has logged why).
bool AddDefaultSteps(App& app, double count) {
    StepGrid& grid = app.ui.grid;
    while (grid.RowCount() < count) {
        int before = grid.RowCount();
        // Only the newest row stays selected, as after "Add new"; deselecting
        // its predecessor here keeps the loop linear, where the deselect-others
        // flag would search the whole list for every row.
        if (before > 0) grid.SetSelected(before, false);
        LstAddNew(app, true, false);
        if (grid.RowCount() == before) return false;
    }
    return true;
}

// Rebuilds the grid with `count` rows and reads the working copy back into
// them; false when a row could not be added.
bool RebuildGrid(App& app, double count) {
    StepGrid& grid = app.ui.grid;
    // What the grid shows is what comes back: steps dropped by an earlier
    // smaller count must not return from an older working copy. An empty
    // grid is never written, as SaveData keeps it.
    if (grid.RowCount() > 0) SaveDataQuietly(app);
    grid.Clear();
    if (!AddDefaultSteps(app, count)) return false;
    // Also writes the row count into panel 6.
    ReadData(app, "", true);
    return true;
}

}  // namespace

void OpenStepCount(App& app) {
    RunSeam(app.seams.hideSettingsPanel);
    ShowStepCount(app, true);
    StepCountView& view = app.ui.stepCount;
    view.SetText(std::to_string(app.ui.grid.RowCount()));
    view.SelectAll();
    view.Centre();
}

void StepCountTextChanged(App& app) {
    StepCountView& view = app.ui.stepCount;
    std::string text = view.Text();
    if (text.empty() || IsNumeric(text)) return;
    app.ui.main.Beep();
    ShowStatus(app, kNotANumber);
    text.pop_back();
    view.SetText(text);
}

bool OnStepCountKey(App& app, int keyCode) {
    if (keyCode == win::kVkReturn) {
        StepChange(app);
        return true;
    }
    if (keyCode == win::kVkEscape) {
        CloseStepCount(app);
        return true;
    }
    return false;
}

void StepChange(App& app) {
    Trapped(app, "StepChange", [&] {
        ShowStatus(app, "Loading steps...  Please wait.");
        std::string typed = app.ui.stepCount.Text();
        if (IsNumeric(typed)) {
            // A step that could not be added leaves the frame open.
            if (!RebuildGrid(app, IntPart(TextToDouble(typed)))) return;
            ShowStatus(app, "Steps successfully changed.");
            app.cellEdit.row = -1;
            app.cellEdit.column = -1;
        } else {
            ShowStatus(app, kNotANumber);
        }
        CloseStepCount(app);
    });
}

void CloseStepCount(App& app) { ShowStepCount(app, false); }
