// The program's entry: builds the system seams, the windows and the App,
// wires the windows' commands to the behaviour, runs MainSub and then the
// message loop until the main window is closed.
#include "app/enable_controls.h"
#include "app/hints.h"
#include "app/main_timers.h"
#include "app/main_window_events.h"
#include "app/program_parts_win.h"
#include "app/recorded_input_win.h"
#include "app/startup.h"
#include "app/startup_services_win.h"
#include "app/stop_key_panel.h"
#include "app/toolbar_commands.h"
#include "core/error_log.h"
#include "core/settings.h"
#include "editing/cell_editing.h"
#include "editing/list_commands.h"
#include "editing/step_count.h"
#include "platform/failure_trace.h"
#include "platform/message_pump_win.h"
#include "playback/playback_loop.h"
#include "playback/run_controls.h"
#include "recorder/recording.h"
#include "settings_ui/settings_panel.h"

namespace {

struct Program {
    WinSystem system;
    WinViews windows;
    MainWindow& main = windows.main;
    AboutFrameWin& about = windows.about;
    App app{system.platform, windows.views};
    StartupServicesWin services{app, windows};

    Program() { Wire(); }

    void OnCommand(Control control) {
        switch (control) {
            case Control::Start: StartButton(app); break;
            case Control::Stop: StopButton(app); break;
            case Control::Repeat: PressRepeatToggle(app); break;
            case Control::Record: RecordButton(app); break;
            case Control::RecOptions: RecordOptionsButton(app); break;
            case Control::Help: ToolbarClick(app, "h2"); break;
            default: break;
        }
    }

    void WireStopKeyPanel() {
        app.seams.changeStopKey = [this] { OpenStopKeyPanel(app); };
        StopKeyFrameWin& panel = main.StopKeyFrame();
        panel.onAccept = [this](const std::string& name) { ChangeStopKey(app, name); };
        panel.onClose = [this] { CloseStopKeyPanel(app); };
        panel.onListKey = [this](int key, const std::string& name) { return OnStopKeyListKey(app, key, name); };
    }

    void WireHintPanel() {
        HintFrameWin& hint = windows.hint;
        hint.onPrevious = [this] { PreviousHint(app); };
        hint.onNext = [this] { NextHint(app); };
        hint.onHide = [this] { HideHintPanel(app); };
        hint.onDontShowChanged = [this] { DontShowHintsChanged(app); };
    }

    void WireSettingsPanel() {
        ::WireSettingsPanel(app);
        SettingsPanelWin& panel = windows.settingsPanel;
        panel.onOptionClick = [this](Setting key) { OptionClicked(app, key); };
        panel.onCommand = [this](PanelCommand command) { RunPanelCommand(app, command); };
        panel.onKeepAttachedTick = [this] { KeepSettingsPanelAttached(app); };
    }

    void WireCellEditors() {
        CellEditorsWin& cells = windows.cells;
        cells.onKey = [this](CellEditor editor, int key) {
            return editor == CellEditor::Text ? CellTextKey(app, key) : DropDownKey(app, key);
        };
        cells.onChange = [this](CellEditor editor) {
            editor == CellEditor::Text ? CellTextChanged(app) : DropDownSelected(app);
        };
        cells.onFocusLost = [this](CellEditor editor) {
            editor == CellEditor::Text ? CellTextFocusLost(app) : DropDownFocusLost(app);
        };
    }

    void WireStepCount() {
        app.seams.changeSteps = [this] { OpenStepCount(app); };
        StepCountFrameWin& frame = main.StepCountFrame();
        frame.onAccept = [this] { StepChange(app); };
        frame.onCancel = [this] { CloseStepCount(app); };
        frame.onChange = [this] { StepCountTextChanged(app); };
        frame.onKey = [this](int key) { return OnStepCountKey(app, key); };
    }

    // A run in progress when the window closes ends with it.
    bool Close() {
        if (!CloseMainWindow(app, services)) return false;
        app.stopRequested = true;
        return true;
    }

    void Wire() {
        main.handlers.command = [this](Control control) { OnCommand(control); };
        main.handlers.timer = [this](Timer timer) { OnMainTimer(app, timer); };
        main.handlers.close = [this] { return Close(); };
        main.handlers.paint = [this] { ApplyWindowState(app); };
        main.handlers.moved = [this] { MainWindowMoved(app); };
        main.handlers.resized = [this] { MainWindowResized(app); };
        main.handlers.panelClick = [this](int panel) { StatusPanelClick(app, panel); };
        WireStopKeyPanel();
        WireStepCount();
        main.Toolbar().onClick = [this](const std::string& key) { ToolbarClick(app, key); };
        windows.list.onPress = [this](double xTwips, int row) { GridMouseDown(app, xTwips, row); };
        windows.list.onClick = [this] { GridClick(app); };
        windows.list.onRightClick = [this](int row) { OpenGridMenu(app, row); };
        windows.list.onKey = [this](int key) { GridKey(app, key); };
        WireCellEditors();
        WireHintPanel();
        WireSettingsPanel();
        main.Receiver().onInput = [this](UINT message, WPARAM wParam, LPARAM lParam) {
            return DeliverRecordedInput(app, message, wParam, lParam);
        };
        app.clickRecord = [this] { RecordButton(app); };
        app.seams.saveScript = [this] { ToolbarClick(app, "save"); };
        about.onLink = [this](AboutLink link) { OpenAboutLink(app, link); };
        about.onHide = [this] { HideAbout(app); };
        app.seams.closeMainWindow = [this] { SendMessageA(main.Handle(), WM_CLOSE, 0, 0); };
        SetFailureSink([this](const std::string& where, const std::string& what, long number) {
            if (!app.errorLogPath.empty()) LogError(app, kErrorSource, what, number, where, 0);
        });
    }
};

}  // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    Program program;
    if (!MainSub(program.app, program.services)) return 0;
    return RunMessageLoop();
}
