#pragma once
// In-memory stand-ins for the windows the behaviour talks to.
#include <array>
#include <deque>
#include <functional>
#include <map>
#include <ostream>
#include <string>
#include <vector>

#include "core/main_view.h"
#include "core/message_boxes.h"
#include "script/step_grid.h"

// The value kept for `key`, or `fallback` when none is.
template <typename Map>
typename Map::mapped_type ValueOr(const Map& map, const typename Map::key_type& key,
                                  typename Map::mapped_type fallback) {
    auto found = map.find(key);
    return found == map.end() ? fallback : found->second;
}

class FakeMainView : public MainView {
public:
    struct TimerSlot {
        bool enabled = false;
        int interval = 0;
        double nextDue = 0;
    };

    void SetPanelText(int panel, const std::string& text) override {
        panels.at(panel) = text;
        if (panel == 1 && !text.empty()) statusTexts.push_back(text);
    }
    std::string PanelText(int panel) const override { return panels.at(panel); }
    void SetEnabled(Control control, bool enabled) override { disabled[control] = !enabled; }
    bool IsEnabled(Control control) const override { return !ValueOr(disabled, control, false); }
    void SetTimer(Timer timer, bool enabled) override;
    void SetTimerInterval(Timer timer, int milliseconds) override { timers[timer].interval = milliseconds; }
    bool TimerEnabled(Timer timer) const override { return ValueOr(timers, timer, {}).enabled; }
    void SetCaption(const std::string& text) override { caption = text; }
    std::string RecordCaption() const override { return recordCaption; }
    void SetRecordCaption(const std::string& text) override { recordCaption = text; }
    void ShowRepeatState(bool on) override { repeatShownOn = on; }
    void SetFrameVisible(Frame frame, bool visible) override { hiddenFrames[frame] = !visible; }
    bool FrameVisible(Frame frame) const override { return !ValueOr(hiddenFrames, frame, false); }
    void SetBusyPointer(bool busy) override { busyPointer = busy; }
    WindowState State() const override { return state; }
    void SetState(WindowState newState) override { state = newState; }
    void SetSizeTwips(double width, double height) override { widthTwips = width, heightTwips = height; }
    double HeightTwips() const override { return heightTwips; }
    Rect Bounds() const override { return bounds; }
    void SetTopmost(bool topmost) override { this->topmost = topmost; }
    void Show() override { shown = true; }
    void FillDropDown(DropDown list, const std::vector<std::string>& entries, const std::string& text) override {
        dropDowns[list] = {entries, text};
    }
    WindowHandle ReceiverHandle() const override { return kReceiver; }
    void SetGridMultiSelect(bool multiple) override { gridMultiSelect = multiple; }
    int ChooseRecordMode(bool fromSelected) override {
        recordModeShown.push_back(fromSelected);
        return recordModeChoice;
    }
    std::optional<GridCommand> ChooseGridCommand(const GridMenu& menu) override {
        gridMenus.push_back(menu);
        return gridCommand;
    }
    void Beep() override { ++beeps; }
    std::string Caption(Control control) const override { return ValueOr(captions, control, ""); }
    std::string MenuCaption(MenuEntry entry) const override { return ValueOr(menuCaptions, entry, ""); }

    // Fires the enabled timers that are due at `nowMs`, earliest first;
    // returns the time of the next due timer after that (or a huge value).
    double NextDue() const;
    void FireDue(double nowMs);

    std::function<void(Timer)> onTimer;  // the main window's WM_TIMER handler
    double nowMs = 0;                    // kept in step by FakeClock

    std::array<std::string, 7> panels;  // index 1 to 6
    std::vector<std::string> statusTexts;  // every text panel 1 was given but blanks, in order
    std::map<Control, bool> disabled;
    std::map<Timer, TimerSlot> timers;
    std::map<Frame, bool> hiddenFrames;
    std::string caption;
    std::string recordCaption = "RECORD";
    bool repeatShownOn = false;
    bool busyPointer = false;
    WindowState state = WindowState::Normal;
    double widthTwips = 0;
    double heightTwips = 0;
    Rect bounds;
    bool topmost = false;
    bool shown = false;
    static constexpr WindowHandle kReceiver = 0x1E5;
    bool gridMultiSelect = true;
    int recordModeChoice = -1;              // the entry the user picks from mnuRecMain
    std::vector<bool> recordModeShown;      // the check mark's entry at each pop-up
    std::optional<GridCommand> gridCommand;  // the entry the user picks from mnulstMain
    std::vector<GridMenu> gridMenus;         // mnulstMain as it was offered, at each pop-up
    int beeps = 0;
    std::map<Control, std::string> captions;
    std::map<MenuEntry, std::string> menuCaptions;
    struct DropDownContent {
        std::vector<std::string> entries;
        std::string shown;
    };
    std::map<DropDown, DropDownContent> dropDowns;
};

// Message boxes that record what was shown and answer from a script; with no
// scripted answer left they answer Ok (or No for questions).
class ScriptedBoxes : public MessageBoxes {
public:
    struct Shown {
        std::string text;
        std::string title;
        BoxStyle style;
        bool operator==(const Shown&) const = default;
        friend void PrintTo(const Shown& box, std::ostream* out) {
            *out << box.text << " | " << box.title << " | style " << static_cast<int>(box.style);
        }
    };
    BoxAnswer Show(const std::string& text, const std::string& title, BoxStyle style) override;
    std::vector<std::string> Texts() const;  // of the boxes shown, in order

    std::deque<BoxAnswer> answers;
    std::vector<Shown> shown;
    std::function<void(const Shown&)> onShow;
};
using ShownBoxes = std::vector<ScriptedBoxes::Shown>;
