#include "recorder/recording.h"

#include <algorithm>
#include <cstdint>
#include <string>

#include "core/app.h"
#include "core/basic_text.h"
#include "core/error_log.h"
#include "core/settings.h"
#include "core/vocabulary.h"
#include "playback/key_letters.h"
#include "playback/run_controls.h"
#include "recorder/input_hook.h"
#include "recorder/run_test.h"
#include "script/grid_rules.h"
#include "script/script_file.h"
#include "script/step_grid.h"

namespace {

constexpr const char* kRecordCaption = "RECORD";
constexpr const char* kStopSuffix = " TO STOP";
constexpr int kBackspace = 8;
constexpr int kEnter = 13;
constexpr int kF11 = 122;
constexpr int kLeftButton = 1;
constexpr int kRightButton = 2;
const char* const kNoClick = kClickActions[0];

// The current step is the grid's selected step; 0 when none is.
int CurrentRow(const StepGrid& grid) { return FirstSelectedRow(grid); }

void SelectOnly(StepGrid& grid, int row) {
    for (int other = 1; other <= grid.RowCount(); ++other) {
        if (grid.Selected(other) != (other == row)) grid.SetSelected(other, other == row);
    }
}

// The left or right variant of an action; other buttons leave the cell as it is.
void SetButtonAction(StepGrid& grid, int row, int button, const char* left, const char* right) {
    if (button == kLeftButton) grid.SetCell(row, kColButton, left);
    if (button == kRightButton) grid.SetCell(row, kColButton, right);
}

void SetPosition(StepGrid& grid, int row, int x, int y) {
    grid.SetCell(row, kColX, std::to_string(x));
    grid.SetCell(row, kColY, std::to_string(y));
}

std::uint32_t Now(App& app) { return app.os.clock.TickCount(); }

// --- Starting ----------------------------------------------------------------

bool HoldsStepsOfItsOwn(const StepGrid& grid) {
    const auto& rows = grid.Rows();
    return std::any_of(rows.begin(), rows.end(), [](const StepRow& row) { return row.mark != "NEW"; });
}

// Recording from the beginning replaces the script; false when the user cancels.
bool ClearForNewScript(App& app) {
    if (app.settings.recordIntoSelected || !HoldsStepsOfItsOwn(app.ui.grid)) return true;
    BoxAnswer answer = app.ui.boxes.Show("New script will be created.  Save current script?", app.appTitle,
                                         BoxStyle::YesNoCancel);
    if (answer == BoxAnswer::Cancel) return false;
    if (answer == BoxAnswer::Yes) RunSeam(app.seams.saveScript);
    app.os.files.Remove(app.scriptStorePath);
    app.ui.grid.Clear();
    app.ui.main.SetPanelText(6, "0");
    return true;
}

// The record button itself stays usable: it ends the recording.
void LockForRecording(App& app, bool locked) {
    SetToolbarEnabled(app, !locked);
    for (Control control : {Control::Start, Control::RecOptions}) app.ui.main.SetEnabled(control, !locked);
}

std::string Notice(const App& app) {
    std::string notice = "Press " + StopKeyName(app.stopKeyCode) +
                         " to stop recording.\r\nPress F11 to create a new step manually.\r\nDo not press F10";
    if (app.settings.enter4Step == 1) notice += "\r\nPress Enter to create a new step (turned on by user).";
    return notice;
}

void SetIdleTimers(MainView& main, bool idle) {
    main.SetTimer(Timer::ShiftNext, idle);
    main.SetTimer(Timer::Hotkey, idle);
    main.SetTimer(Timer::Stop, !idle);
}

void StartRecording(App& app) {
    if (!ClearForNewScript(app)) return;
    LockForRecording(app, true);
    StepGrid& grid = app.ui.grid;
    // The steps from the start point on belong to the recording once it closes them.
    if (int row = CurrentRow(grid)) {
        for (; row <= grid.RowCount(); ++row) grid.SetChecked(row, false);
    }
    app.ui.boxes.Show(Notice(app), app.appTitle, BoxStyle::Exclamation);
    app.stopRequested = false;
    MainView& main = app.ui.main;
    main.SetRecordCaption(StopKeyName(app.stopKeyCode) + kStopSuffix);
    SetIdleTimers(main, false);
    main.SetGridMultiSelect(false);
    app.recorder.lastStepTime = Now(app);
    if (!CurrentRow(grid)) LstAddNew(app, true, true);
    app.recorder.lastKeyDown = -1;
    StartHooks(app);
}

// --- Stopping ----------------------------------------------------------------

bool IsBlank(const StepGrid& grid, int row) {
    return grid.Cell(row, kColButton) == kNoClick && grid.Cell(row, kColAdditional).empty() &&
           grid.Cell(row, kColMins) == "0" && grid.Cell(row, kColSecs) == "0" && grid.Cell(row, kColRepeat) == "0";
}

// The unchecked steps are not part of the recording: a last blank one goes,
// the others go only when the user says so.
void KeepRecordedSteps(App& app) {
    StepGrid& grid = app.ui.grid;
    const auto& rows = grid.Rows();
    int unchecked = static_cast<int>(std::count_if(rows.begin(), rows.end(), [](const StepRow& row) { return !row.checked; }));
    if (unchecked == 1 && IsBlank(grid, grid.RowCount())) {
        grid.RemoveRow(grid.RowCount());
    } else if (unchecked == grid.RowCount()) {
        for (int row = 1; row <= grid.RowCount(); ++row) grid.SetChecked(row, true);
    } else if (unchecked > 0) {
        std::string question = "There are " + std::to_string(unchecked) +
                               " steps that are not part of this recording.  They are disabled (unchecked).  Would "
                               "you like to remove those steps?";
        int current = CurrentRow(grid);
        if (current && app.ui.boxes.Show(question, app.appTitle, BoxStyle::QuestionYesNo) == BoxAnswer::Yes) {
            while (grid.RowCount() >= current) grid.RemoveRow(grid.RowCount());
        }
    }
}

void StopRecording(App& app) {
    MainView& main = app.ui.main;
    StepGrid& grid = app.ui.grid;
    LockForRecording(app, false);
    app.recorder.dblClickSeen = false;
    main.SetRecordCaption(kRecordCaption);
    StopHooks(app);
    app.recorder.lastStepTime = 0;
    main.SetTimer(Timer::Stop, false);
    if (grid.RowCount() > 0) {
        KeepRecordedSteps(app);
        Renumber(app);
    }
    if (grid.RowCount() > 0) {
        SelectOnly(grid, 1);
        SaveDataQuietly(app);
    }
    main.SetGridMultiSelect(true);
    SetIdleTimers(main, true);
    for (int row = 1; row <= grid.RowCount(); ++row) {
        grid.SetCell(row, kColAdditional, RunTest(app, grid.Cell(row, kColAdditional), true));
    }
    app.ui.boxes.Show("Recording completed successfully.", app.appTitle, BoxStyle::Exclamation);
}

// --- Closing steps -------------------------------------------------------------

bool SameAction(const StepGrid& grid, int before, int row) {
    for (int column : {kColX, kColY, kColButton, kColAdditional, kColMins}) {
        if (grid.Cell(before, column) != grid.Cell(row, column)) return false;
    }
    return true;
}

void StampElapsed(App& app, int row) {
    double elapsed = static_cast<double>(Now(app)) - app.recorder.lastStepTime;
    double minutes = IntPart(elapsed / 60000);
    std::string seconds = FixedText(elapsed / 1000 - IntPart(minutes * 60), 2);
    std::replace(seconds.begin(), seconds.end(), '.', app.decimalSeparator);
    app.ui.grid.SetCell(row, kColMins, NumberText(minutes));
    app.ui.grid.SetCell(row, kColSecs, seconds);
}

// Waits out the double-click time with the events flowing; a double click
// recorded meanwhile takes the place of the click.
void HandleClick(App& app, int row) {
    const bool keepWaiting = false;
    app.os.clock.Wait(app.os.input.GetDoubleClickTime() / 1000.0, keepWaiting);
    // The stop key may have ended the recording inside the wait.
    if (!Recording(app)) return;
    if (app.recorder.dblClickSeen) {
        app.recorder.dblClickSeen = false;
        return;
    }
    SetButtonAction(app.ui.grid, row, app.recorder.downButton, "Left Click", "Right Click");
    SelNext(app);
    app.recorder.dblClickSeen = false;
}

// Events can still be queued at the receiver when a recording has ended;
// they change nothing then.
int RecordingRow(const App& app) { return Recording(app) ? CurrentRow(app.ui.grid) : 0; }

}  // namespace

bool Recording(const App& app) { return EndsWith(app.ui.main.RecordCaption(), "TO STOP"); }

void RecordButton(App& app) {
    Trapped(app, "RecordButton", [&] {
        if (Recording(app)) {
            StopRecording(app);
        } else if (app.ui.main.RecordCaption() == kRecordCaption) {
            StartRecording(app);
        }
    });
}

void RecordOptionsButton(App& app) {
    int chosen = app.ui.main.ChooseRecordMode(app.settings.recordIntoSelected);
    if (chosen < 0 || (chosen == 1) == app.settings.recordIntoSelected) return;
    app.settings.recordIntoSelected = chosen == 1;
    WriteSetting(app, Setting::RecMode, std::to_string(chosen));
}

void RecordMouseDown(App& app, int button, int x, int y) {
    RecorderState& recorder = app.recorder;
    recorder.buttonHeld = true;
    int row = RecordingRow(app);
    if (x < 0 || y < 0 || recorder.dblClickSeen || row == 0) return;
    SetPosition(app.ui.grid, row, x, y);
    recorder.downX = static_cast<std::int16_t>(x);
    recorder.downY = static_cast<std::int16_t>(y);
    recorder.downButton = static_cast<std::int16_t>(button);
    SetButtonAction(app.ui.grid, row, button, "Left Down", "Right Down");
}

void RecordMouseMove(App& app, int x, int y) {
    // While a button is held the step keeps the press position.
    int row = RecordingRow(app);
    if (row && !app.stopRequested && !app.recorder.buttonHeld) SetPosition(app.ui.grid, row, x, y);
}

void RecordMouseUp(App& app, int button, int x, int y) {
    RecorderState& recorder = app.recorder;
    recorder.buttonHeld = false;
    int row = RecordingRow(app);
    if (x < 0 || y < 0 || recorder.dblClickSeen || row == 0) return;
    if (x == recorder.downX && y == recorder.downY) {
        HandleClick(app, row);
        return;
    }
    // A drag: the press stays a step of its own, the release makes another.
    SelNext(app);
    row = CurrentRow(app.ui.grid);
    SetPosition(app.ui.grid, row, x, y);
    SetButtonAction(app.ui.grid, row, button, "Left Up", "Right Up");
    SelNext(app);
}

void RecordDoubleClick(App& app) {
    int row = RecordingRow(app);
    if (row == 0) return;
    SetButtonAction(app.ui.grid, row, app.recorder.downButton, "Left DblClick", "Right DblClick");
    SelNext(app);
    app.recorder.dblClickSeen = true;
}

void RecordKeyDown(App& app, int virtualKey) {
    int row = RecordingRow(app);
    if (row == 0 || virtualKey == app.stopKeyCode || virtualKey == kF11) return;
    // With Enter making steps, its release makes the step.
    if (virtualKey == kEnter && app.settings.enter4Step == 1) return;
    StepGrid& grid = app.ui.grid;
    std::string additional = grid.Cell(row, kColAdditional);
    if (virtualKey == kBackspace) {
        if (!additional.empty()) grid.SetCell(row, kColAdditional, additional.substr(0, additional.size() - 1));
        return;
    }
    RecorderState& recorder = app.recorder;
    if (recorder.lastKeyDown == -1) additional.clear();
    // A held key repeats its press: it is recorded once.
    if (recorder.lastKeyDown != virtualKey) {
        recorder.lastKeyDown = virtualKey;
        additional += KeyToText(virtualKey, true);
        grid.SetChecked(row, true);
    }
    grid.SetCell(row, kColAdditional, additional);
}

void RecordKeyUp(App& app, int virtualKey) {
    int row = RecordingRow(app);
    if (row == 0 || virtualKey == app.stopKeyCode || virtualKey == kBackspace) return;
    StepGrid& grid = app.ui.grid;
    if (virtualKey == kF11 || (virtualKey == kEnter && app.settings.enter4Step == 1)) {
        grid.SetCell(row, kColButton, kNoClick);
        SelNext(app);
        return;
    }
    grid.SetCell(row, kColAdditional, grid.Cell(row, kColAdditional) + KeyToText(virtualKey, false));
    app.recorder.lastKeyDown = 0;
}

void SelNext(App& app) {
    StepGrid& grid = app.ui.grid;
    if (!CurrentRow(grid)) LstAddNew(app, true, true);
    int row = CurrentRow(grid);
    if (row > 1 && SameAction(grid, row - 1, row)) {
        // The action repeated the one before: count it there.
        grid.SetCell(row - 1, kColRepeat, NumberText(Val(grid.Cell(row - 1, kColRepeat)) + 1));
        SelectOnly(grid, --row);
    } else {
        StampElapsed(app, row);
    }
    grid.SetChecked(row, true);
    app.recorder.lastStepTime = Now(app);
    if (row < grid.RowCount()) {
        SelectOnly(grid, row + 1);
    } else {
        LstAddNew(app, true, true);
    }
    app.recorder.lastKeyDown = -1;
}
