#include "app/enable_controls.h"

#include "core/app.h"
#include "playback/run_controls.h"

namespace {

constexpr Control kAlwaysSwitched[] = {Control::ToolSettings, Control::Start, Control::Stop, Control::Repeat,
                                       Control::RecOptions};
constexpr Control kSwitchedWithAll[] = {Control::ToolSave, Control::ToolLoad, Control::ToolAbout,
                                        Control::ToolHelp, Control::Grid,     Control::StatusBar};

bool OnTop(const App& app) { return app.settings.onTop == 1; }

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

void ApplyWindowState(App& app) {
    switch (app.ui.main.State()) {
        case WindowState::Normal:
            if (OnTop(app)) app.ui.main.SetTopmost(true);
            break;
        case WindowState::Minimised:
            EnableControls(app, true, false);
            RunSeam(app.seams.hideSettingsPanel);
            if (OnTop(app)) app.ui.main.SetTopmost(false);
            break;
        case WindowState::Maximised:
            break;
    }
}
