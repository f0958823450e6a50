#include "settings_ui/settings_panel.h"

#include "core/app.h"
#include "core/error_log.h"
#include "playback/run_controls.h"

namespace {

constexpr double kSlideStep = 200;
// Each step stays on screen this long, so the slide can be seen on a fast machine.
constexpr std::uint32_t kStepPauseMs = 10;

// fraOptions with its margins on both sides: 2820 twips for the frame of 2700
// that the captions need in "MS Sans Serif".
double PanelWidth(const SettingsPanelView& view) { return view.FrameWidth() + 2 * kOptionsFrameLeft; }

int& RunningValue(App& app, Setting key) { return app.settings.*KeyOf(key).checkBox; }

const char* ControlOf(Setting key) {
    for (const PanelOption& option : kPanelOptions) {
        if (option.key == key) return option.control;
    }
    return "frmSettings";
}

const char* ControlOf(PanelCommand command) {
    for (const PanelButton& button : kPanelButtons) {
        if (button.command == command) return button.control;
    }
    return "frmSettings";
}

// Only the hide sequence stops the timer of a visible panel, so a panel in
// the middle of hiding counts as closed already.
bool PanelOpen(const SettingsPanelView& view) { return view.Visible() && view.KeepAttached(); }

void SlideOptionsAway(App& app) {
    SettingsPanelView& view = app.ui.settingsPanel;
    for (double offset = 0; offset < PanelWidth(view); offset += kSlideStep) {
        view.SetFrameLeft(kOptionsFrameLeft - offset);
        view.SetWidth(PanelWidth(view));
        app.os.clock.Yield();
        app.os.clock.Sleep(kStepPauseMs);
    }
}

}  // namespace

void WireSettingsPanel(App& app) {
    app.seams.openSettingsPanel = [&app] { OpenSettingsPanel(app); };
    app.seams.hideSettingsPanel = [&app] { HideSettingsPanel(app); };
    app.seams.resetStepCounter = [&app] { RunPanelCommand(app, PanelCommand::ResetStepCounter); };
}

void OpenSettingsPanel(App& app) {
    SettingsPanelView& view = app.ui.settingsPanel;
    for (const PanelOption& option : kPanelOptions) view.SetOption(option.key, RunningValue(app, option.key));
    KeepSettingsPanelAttached(app);
    view.SetVisible(true);
    view.SetKeepAttached(true);
}

void OptionClicked(App& app, Setting key) {
    Trapped(app, ControlOf(key), [&] {
        int value = app.ui.settingsPanel.Option(key);
        RunningValue(app, key) = value;
        if (key == Setting::OnTop) app.ui.main.SetTopmost(value == 1);
        // Written at once, so that a crash cannot lose the choice; the save
        // also adds or removes the start-with-Windows entry.
        SaveSet(app);
    });
}

void KeepSettingsPanelAttached(App& app) {
    SettingsPanelView& view = app.ui.settingsPanel;
    Rect main = app.ui.main.Bounds();
    Rect panel = view.Bounds();
    int left = main.right;
    int top = main.top + (main.bottom - main.top) / 2 - (panel.bottom - panel.top) / 2;
    if (panel.left != left || panel.top != top) view.MoveTo(left, top);
}

void HideSettingsPanel(App& app) {
    SettingsPanelView& view = app.ui.settingsPanel;
    if (!PanelOpen(view)) return;
    view.SetKeepAttached(false);
    // The running program holds every option since its click; the file gets them now.
    SaveSet(app);
    SlideOptionsAway(app);
    view.SetVisible(false);
    view.SetWidth(PanelWidth(view));
    view.SetFrameLeft(kOptionsFrameLeft);
    EnableControls(app, true, false);
}

void ResetStepCounter(App& app) {
    if (app.ui.boxes.Show("Reset total clicks counter?", app.appTitle, BoxStyle::QuestionYesNo) != BoxAnswer::Yes)
        return;
    WriteSetting(app, Setting::StepCounter, "0");
    app.ui.main.SetPanelText(5, "0");
}

void RunPanelCommand(App& app, PanelCommand command) {
    Trapped(app, ControlOf(command), [&] {
        switch (command) {
            case PanelCommand::Hide: HideSettingsPanel(app); break;
            case PanelCommand::ChangeStopKey: RunSeam(app.seams.changeStopKey); break;
            case PanelCommand::ResetStepCounter: ResetStepCounter(app); break;
            case PanelCommand::ChangeSteps: RunSeam(app.seams.changeSteps); break;
        }
    });
}
