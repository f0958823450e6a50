#include "playback/playback_loop.h"

#include <cstdint>

#include "core/app.h"
#include "core/basic_text.h"
#include "core/error_log.h"
#include "core/settings.h"
#include "core/status_line.h"
#include "playback/key_sender.h"
#include "playback/pointer_actions.h"
#include "playback/random_value.h"
#include "playback/run_controls.h"
#include "playback/run_input.h"
#include "playback/waits.h"
#include "playback/window_command.h"
#include "script/script_file.h"
#include "script/step_grid.h"

namespace {

// A numeric cell as an integer; an RND expression is evaluated afresh and
// its integer part taken. Anything else not numeric raises Type mismatch.
std::int32_t IntegerCell(App& app, int row, int column) {
    std::string text = app.ui.grid.Cell(row, column);
    if (IsRnd(text)) return CLng(IntPart(RndNumber(app, text, row)));
    return TextToLong(text);
}

// A wait cell keeps its fraction.
double SecondsCell(App& app, int row, int column) {
    std::string text = app.ui.grid.Cell(row, column);
    if (IsRnd(text)) return RndNumber(app, text, row);
    return TextToDouble(text);
}

// Every "Left Down"/"Right Down" needs its "Up" later on; an "Up" before any
// "Down" is only pointed out.
bool ButtonsPaired(App& app) {
    StepGrid& grid = app.ui.grid;
    int left = 0;
    int right = 0;
    for (int row = 1; row <= grid.RowCount(); ++row) {
        std::string button = grid.Cell(row, kColButton);
        left += (button == "Left Down") - (button == "Left Up");
        right += (button == "Right Down") - (button == "Right Up");
        if (left < 0) {
            app.ui.boxes.Show("Pressing Left Up before Left Down does not do anything.", app.appTitle,
                              BoxStyle::Information);
            left = 0;
        } else if (right < 0) {
            app.ui.boxes.Show("Pressing Right Up before Right Down does not do anything.", app.appTitle,
                              BoxStyle::Information);
            right = 0;
        }
    }
    if (left == 0 && right == 0) return true;
    std::string message = right != 0 ? "Right Down is not followed by Right Up." : "Left Down is not followed by Left Up.";
    app.ui.boxes.Show(message, app.appTitle, BoxStyle::Error);
    ShowStatus(app, message);
    return false;
}

void SetAllRowColours(App& app, std::uint32_t colour) {
    for (int row = 1; row <= app.ui.grid.RowCount(); ++row) app.ui.grid.SetRowColour(row, colour);
}

void CountStep(App& app) {
    app.ui.main.SetPanelText(5, NumberText(Val(app.ui.main.PanelText(5)) + 1));
}

// The Repeat cell shows the remaining count while the step runs and gets its
// own text back afterwards, also when the run ends with an error.
class RepeatCellKeeper {
public:
    RepeatCellKeeper(StepGrid& grid, int row) : grid_(grid), row_(row), text_(grid.Cell(row, kColRepeat)) {}
    ~RepeatCellKeeper() { grid_.SetCell(row_, kColRepeat, text_); }
    RepeatCellKeeper(const RepeatCellKeeper&) = delete;
    RepeatCellKeeper& operator=(const RepeatCellKeeper&) = delete;
    void Show(std::int64_t remaining) { grid_.SetCell(row_, kColRepeat, std::to_string(remaining)); }

private:
    StepGrid& grid_;
    int row_;
    std::string text_;
};

// Moves the pointer once per step; -1 keeps a coordinate where it is.
// Returns where the pointer was put.
Point PlacePointer(App& app, int x, int y) {
    Point pointer = app.os.input.GetCursorPos();
    if (x == -1) x = pointer.x;
    if (y == -1) y = pointer.y;
    app.guardX = x;
    app.guardY = y;
    if (app.settings.smoothPointer == 1) {
        app.ui.main.SetTimer(Timer::MouseSaver, false);
        SScroll(app, x, y);
        if (app.settings.mouseSaver == 1) app.ui.main.SetTimer(Timer::MouseSaver, true);
    }
    app.os.input.SetCursorPos(x, y);
    return {x, y};
}

// One performance: click, keys or window command, wait. Every click of the
// step, repetitions included, lands where the step put the pointer.
void Perform(App& app, int row, int cellX, int cellY, Point placed) {
    StepGrid& grid = app.ui.grid;
    SendClickAction(app, grid.Cell(row, kColButton), placed);
    std::string additional = grid.Cell(row, kColAdditional);
    if (additional.find("%win") != std::string::npos) {
        WinCommand(app, additional, cellX, cellY);
    } else {
        std::string keys = Trim(additional);
        grid.SetCell(row, kColAdditional, keys);
        if (!keys.empty()) TypeKeyText(app, keys);
    }
    Pause(app, SecondsCell(app, row, kColMins) * 60 + SecondsCell(app, row, kColSecs));
}

void PlayStep(App& app, int row) {
    StepGrid& grid = app.ui.grid;
    grid.SetRowColour(row, kPlayedRowColour);
    if (!grid.Checked(row)) return;
    CountStep(app);
    RepeatCellKeeper repeatCell(grid, row);
    std::int64_t remaining = IntegerCell(app, row, kColRepeat);
    repeatCell.Show(remaining);
    int cellX = IntegerCell(app, row, kColX);
    int cellY = IntegerCell(app, row, kColY);
    Point placed = PlacePointer(app, cellX, cellY);
    do {
        Perform(app, row, cellX, cellY, placed);
        repeatCell.Show(--remaining);
        // A repetition that never waited must still let the stop key be noticed.
        app.os.clock.Yield();
    } while (!app.stopRequested && remaining >= 0);
}

void PlayPasses(App& app) {
    do {
        SetAllRowColours(app, kButtonTextColour);
        if (app.stopRequested) break;
        int count = app.ui.grid.RowCount();
        for (int row = 1; row <= count && !app.stopRequested; ++row) PlayStep(app, row);
        // A pass that never waited must still let the stop key be noticed.
        app.os.clock.Yield();
    } while (app.settings.repeatState == "1" && !app.stopRequested);
}

// Checks the pairing, saves the working copy and locks the window; false
// when no run may start.
bool BeginRun(App& app) {
    if (app.ui.grid.RowCount() == 0 || !ButtonsPaired(app)) return false;
    SaveData(app, false);
    LockForRun(app);
    app.stopRequested = false;
    if (app.settings.startMin == 1) app.ui.main.SetState(WindowState::Minimised);
    if (app.settings.mouseSaver == 1) {
        app.ui.main.SetTimer(Timer::MouseSaver, true);
        app.guardX = 0;
        app.guardY = 0;
    }
    DeselectAllRows(app);
    app.os.clock.BeginFineTiming();
    return true;
}

void EndRun(App& app) {
    ReleaseHeldInput(app);
    app.os.clock.EndFineTiming();
    if (!app.stopRequested) StopButton(app);
    if (app.settings.startMin == 1) app.ui.main.SetState(WindowState::Normal);
    if (app.autoStarted) {
        WriteSetting(app, Setting::AutoStart, "0");
        LoadSet(app);
        app.autoStarted = false;
    }
    SetAllRowColours(app, kButtonTextColour);
}

}  // namespace

void StartButton(App& app) {
    bool running = false;
    Trapped(app, "StartButton", [&] {
        running = BeginRun(app);
        if (running) PlayPasses(app);
    });
    // A run that ended with an error still returns the window to idle.
    if (running) Trapped(app, "StartButton", [&] { EndRun(app); });
}
