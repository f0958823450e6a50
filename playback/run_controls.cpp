#include "playback/run_controls.h"

#include <initializer_list>

#include "core/app.h"
#include "script/step_grid.h"

namespace {

constexpr Control kAlwaysSwitched[] = {Control::ToolSettings, Control::Start, Control::Stop, Control::Repeat,
                                       Control::RecOptions};
constexpr Control kSwitchedWithAll[] = {Control::ToolSave, Control::ToolLoad, Control::ToolAbout,
                                        Control::ToolHelp, Control::Grid,     Control::StatusBar};

}  // namespace

void EnableControls(App& app, bool enabled, bool all) {
    for (Control control : kAlwaysSwitched) app.ui.main.SetEnabled(control, enabled);
    SetRecordEnabled(app, enabled);
    if (!all) return;
    for (Control control : kSwitchedWithAll) {
        // The about box keeps its button disabled until it is hidden again.
        bool aboutShown = control == Control::ToolAbout && app.ui.about.Visible();
        app.ui.main.SetEnabled(control, enabled && !aboutShown);
    }
}

void SetToolbarEnabled(App& app, bool enabled) {
    for (Control button : {Control::ToolSave, Control::ToolLoad, Control::ToolSettings}) {
        app.ui.main.SetEnabled(button, enabled);
    }
}

void SetRecordEnabled(App& app, bool enabled) {
    app.ui.main.SetEnabled(Control::Record, enabled && app.hookLibraryLoaded);
}

void LockForRun(App& app) {
    MainView& main = app.ui.main;
    for (Control control : {Control::Record, Control::RecOptions, Control::Start}) main.SetEnabled(control, false);
    SetToolbarEnabled(app, false);
    main.SetEnabled(Control::Grid, false);
    main.SetTimer(Timer::Stop, true);
    main.SetTimer(Timer::ShiftNext, false);
}

void StopButton(App& app) {
    MainView& main = app.ui.main;
    app.stopRequested = true;
    main.SetTimer(Timer::MouseSaver, false);
    for (Control control : {Control::Start, Control::RecOptions}) main.SetEnabled(control, true);
    SetRecordEnabled(app, true);
    main.SetTimer(Timer::Stop, false);
    SetToolbarEnabled(app, true);
    DeselectAllRows(app);
    main.SetEnabled(Control::Grid, true);
    main.SetTimer(Timer::ShiftNext, true);
}

void DeselectAllRows(App& app) {
    StepGrid& grid = app.ui.grid;
    for (int row = 1; row <= grid.RowCount(); ++row) grid.SetSelected(row, false);
}
