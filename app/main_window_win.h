#pragma once
// frmMain: the main window with the toolbar TB, the grid frame fraMain, the
// step grid with its cell editors, the play and record buttons, the about
// box, the hint panel, the hidden receiver IHRec and the status bar SB.
// It renders what the behaviour says (MainView) and hands the user's
// commands, its timers' ticks and its close to the handlers the wiring sets.
#include <array>
#include <functional>
#include <map>
#include <string>

#include "app/about_frame_win.h"
#include "app/cell_editors_win.h"
#include "app/hint_frame_win.h"
#include "app/layout.h"
#include "app/receiver_window_win.h"
#include "app/status_bar_win.h"
#include "app/step_count_frame_win.h"
#include "app/step_list_win.h"
#include "app/stop_key_frame_win.h"
#include "app/toolbar_win.h"
#include "app/window_timers_win.h"
#include "core/main_view.h"
#include "platform/base_window_win.h"
#include "platform/owned_win.h"

struct MainWindowHandlers {
    // A button's click (cmdStart, cmdStop, cmdRecord, cmdRecOptions, cmdRepeat).
    std::function<void(Control)> command;
    std::function<void(Timer)> timer;
    // The close sequence; false keeps the window open.
    std::function<bool()> close;
    // Runs every time the window paints itself, and when it is minimised,
    // which paints nothing.
    std::function<void()> paint;
    // The window was moved or resized; its contents are laid out only after this.
    std::function<void()> moved;
    // The contents were laid out for a new size.
    std::function<void()> resized;
    // A click on a status-bar panel, numbered 1 to 6.
    std::function<void(int panel)> panelClick;
};

class MainWindow : public BaseWindow<MainWindow>, public MainView {
public:
    MainWindow(StepListWin& grid, AboutFrameWin& about, CellEditorsWin& cells, HintFrameWin& hint)
        : grid_(grid), about_(about), cells_(cells), hint_(hint) {}
    ~MainWindow() override;

    // Creates the window hidden, centred on the screen, with all its controls.
    bool Create();
    // Runs a button's command as a click on it does.
    void Click(Control control);
    ReceiverWindow& Receiver() { return receiver_; }
    ToolbarWin& Toolbar() { return toolbar_; }
    StopKeyFrameWin& StopKeyFrame() { return stopKeyFrame_; }
    StepCountFrameWin& StepCountFrame() { return stepCountFrame_; }

    MainWindowHandlers handlers;

    void SetPanelText(int panel, const std::string& text) override;
    std::string PanelText(int panel) const override;
    void SetEnabled(Control control, bool enabled) override;
    bool IsEnabled(Control control) const override;
    void SetTimer(Timer timer, bool enabled) override;
    void SetTimerInterval(Timer timer, int milliseconds) override;
    bool TimerEnabled(Timer timer) const override;
    void SetCaption(const std::string& text) override;
    std::string RecordCaption() const override;
    std::string Caption(Control control) const override;
    std::string MenuCaption(MenuEntry entry) const override;
    void SetRecordCaption(const std::string& text) override;
    void ShowRepeatState(bool on) override;
    void SetFrameVisible(Frame frame, bool visible) override;
    bool FrameVisible(Frame frame) const override;
    void SetBusyPointer(bool busy) override;
    WindowState State() const override;
    void SetState(WindowState state) override;
    void SetSizeTwips(double width, double height) override;
    double HeightTwips() const override;
    Rect Bounds() const override;
    void SetTopmost(bool topmost) override;
    void Show() override;
    void FillDropDown(DropDown list, const std::vector<std::string>& entries, const std::string& shown) override;
    WindowHandle ReceiverHandle() const override;
    void SetGridMultiSelect(bool multiple) override;
    int ChooseRecordMode(bool fromSelected) override;
    std::optional<GridCommand> ChooseGridCommand(const GridMenu& menu) override;
    void Beep() override;

    LRESULT HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

private:
    void CreateChildren();
    void StackChildren();
    HWND CreateChild(const char* className, const char* text, DWORD style, int id);
    void ApplyFonts();
    void Layout();
    void Centre(int width, int height);
    HWND ControlWindow(Control control) const;

    void OnSize(WPARAM kind);
    void OnCommand(WPARAM wParam, LPARAM lParam);
    bool CloseAllowed();
    void OnDrawItem(const DRAWITEMSTRUCT& item);
    void OnTimer(UINT_PTR id);
    LRESULT OnNotify(NMHDR& header);
    void OnDpiChanged(int dpi, const RECT& suggested);
    void OnMinMaxInfo(MINMAXINFO& info) const;
    bool OnSetCursor();

    StepListWin& grid_;
    AboutFrameWin& about_;
    CellEditorsWin& cells_;  // txtCell and cmbDrop
    HintFrameWin& hint_;     // fraDYK
    ToolbarWin toolbar_;
    StatusBarWin statusBar_;
    ReceiverWindow receiver_;
    WindowTimers timers_;
    std::array<bool, kTimerCount> timerRunning_{};
    std::map<int, HWND> buttons_;  // by control id
    HWND frame_ = nullptr;
    StopKeyFrameWin stopKeyFrame_;  // fraStopKey with cmbStopKeys
    StepCountFrameWin stepCountFrame_;  // fraSteps with txtSteps
    OwnedFont font_;
    int dpi_ = 96;

    std::array<std::string, kPanelCount + 1> panels_;  // index 1 to 6
    std::map<Control, bool> disabled_;
    std::map<Frame, bool> frameVisible_;
    std::string recordCaption_ = "RECORD";
    bool repeatOn_ = false;
    bool busy_ = false;
};
