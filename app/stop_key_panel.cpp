#include "app/stop_key_panel.h"

#include "core/app.h"
#include "core/settings.h"
#include "core/status_line.h"
#include "core/vocabulary.h"
#include "platform/win_constants.h"

namespace {

// The panel and the step-count frame both take the grid frame's place, so
// only one of them is shown at a time.
void ShowStopKeyPanel(App& app, bool open) {
    if (open) app.ui.main.SetFrameVisible(Frame::Steps, false);
    app.ui.main.SetFrameVisible(Frame::StopKey, open);
    app.ui.main.SetFrameVisible(Frame::Main, !open);
}

}  // namespace

void ChangeStopKey(App& app, const std::string& name) {
    app.stopKeyCode = StopKeyCodeOf(name);
    // F6 has no code, so the panel and the notice show the empty name.
    std::string shownName = StopKeyName(app.stopKeyCode);
    app.ui.main.SetPanelText(4, shownName);
    WriteSetting(app, Setting::StopKey, std::to_string(app.stopKeyCode));
    ShowStatus(app, "StopKey successfully changed to " + shownName);
    CloseStopKeyPanel(app);
}

void OpenStopKeyPanel(App& app) {
    RunSeam(app.seams.hideSettingsPanel);
    ShowStopKeyPanel(app, true);
}

void CloseStopKeyPanel(App& app) { ShowStopKeyPanel(app, false); }

bool OnStopKeyListKey(App& app, int keyCode, const std::string& chosenName) {
    if (keyCode == win::kVkReturn) {
        ChangeStopKey(app, chosenName);
        return true;
    }
    if (keyCode == win::kVkEscape) {
        CloseStopKeyPanel(app);
        return true;
    }
    return false;
}
