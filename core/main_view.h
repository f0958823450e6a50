#pragma once
// The main window as the behaviour sees it: status-bar panels, the enabled
// state of its commands, captions, timers and window state.
#include <optional>
#include <string>
#include <vector>

#include "platform/window_system.h"

enum class Control {
    ToolSave, ToolLoad, ToolSettings, ToolAbout, ToolHelp, ToolExit,
    Start, Stop, Repeat, Record, RecOptions, Help, Grid, StatusBar,
};

enum class Timer { Stop, Hotkey, ShiftNext, CursorPos, Blank, MouseSaver, ColResize };

enum class WindowState { Normal, Minimised, Maximised };

enum class Frame { Main, About, StopKey, Steps };

// Entries of the main window's menus: mnuRecMain's two and the help button's two.
enum class MenuEntry { RecordFromBeginning, RecordFromSelected, ViewHints, ViewHelpFile };

// cmbDrop (the Button column's editor) and cmbStopKeys.
enum class DropDown { Button, StopKeys };

// The entries of the grid's context menu mnulstMain.
enum class GridCommand {
    AddNew, InsertStep, RemoveStep, CheckAll, UncheckAll, InvertChecked, SelectAll, InvertSelection,
    MakeSame, ClearList, ChangeSteps,
};

// What mnulstMain offers for the place it opens at.
struct GridMenu {
    bool insertEnabled = true;
    bool removeEnabled = true;
    bool makeSameEnabled = true;
    std::string removeCaption;  // "Remove Step #3", "Remove Steps", "Remove Step(s)"
};

class MainView {
public:
    virtual ~MainView() = default;
    // Panels are numbered 1 to 6.
    virtual void SetPanelText(int panel, const std::string& text) = 0;
    virtual std::string PanelText(int panel) const = 0;
    virtual void SetEnabled(Control control, bool enabled) = 0;
    virtual bool IsEnabled(Control control) const = 0;
    virtual void SetTimer(Timer timer, bool enabled) = 0;
    virtual void SetTimerInterval(Timer timer, int milliseconds) = 0;
    virtual bool TimerEnabled(Timer timer) const = 0;
    virtual void SetCaption(const std::string& text) = 0;
    virtual std::string RecordCaption() const = 0;
    // The caption a button or toolbar button shows now.
    virtual std::string Caption(Control control) const = 0;
    virtual std::string MenuCaption(MenuEntry entry) const = 0;
    virtual void SetRecordCaption(const std::string& text) = 0;
    // The repeat toggle's look: dark green when on.
    virtual void ShowRepeatState(bool on) = 0;
    virtual void SetFrameVisible(Frame frame, bool visible) = 0;
    virtual bool FrameVisible(Frame frame) const = 0;
    virtual void SetBusyPointer(bool busy) = 0;
    virtual WindowState State() const = 0;
    virtual void SetState(WindowState state) = 0;
    // Outer size in twips.
    virtual void SetSizeTwips(double width, double height) = 0;
    virtual double HeightTwips() const = 0;
    // The outer rectangle on the screen, in pixels.
    virtual Rect Bounds() const = 0;
    virtual void SetTopmost(bool topmost) = 0;
    virtual void Show() = 0;
    // Replaces the entries of a drop-down list and shows `shown` as its text.
    virtual void FillDropDown(DropDown list, const std::vector<std::string>& entries,
                              const std::string& shown) = 0;
    // The hidden receiver IHRec, to which the hook library posts its events.
    virtual WindowHandle ReceiverHandle() const = 0;
    // lstMain's MultiSelect: off while a recording runs.
    virtual void SetGridMultiSelect(bool multiple) = 0;
    // Pops mnuRecMain up under cmdRecOptions with the check mark on
    // mnuRecSelected or mnuRecBeginning; returns the entry chosen: 1
    // mnuRecSelected, 0 mnuRecBeginning, -1 none.
    virtual int ChooseRecordMode(bool fromSelected) = 0;
    // Pops mnulstMain up at the pointer; returns the entry chosen, if any.
    virtual std::optional<GridCommand> ChooseGridCommand(const GridMenu& menu) = 0;
    // The system's default sound, with which a refused entry is answered.
    virtual void Beep() = 0;
};
