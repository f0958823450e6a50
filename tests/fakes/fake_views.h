#pragma once
// In-memory stand-ins for the windows the behaviour talks to.
#include <array>
#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include "app/main_view.h"
#include "app/message_boxes.h"
#include "script/step_grid.h"

class FakeGrid : public StepGrid {
public:
    struct Row {
        std::array<std::string, kColumnCount> cells;
        bool checked = false;
        std::string mark;
        bool selected = false;
        std::uint32_t colour = kButtonTextColour;
    };
    struct ColumnInfo {
        std::string header;
        double width;
        bool centred;
    };

    int RowCount() const override { return static_cast<int>(rows.size()); }
    void InsertRow(int row) override { rows.insert(rows.begin() + (row - 1), Row{}); }
    void RemoveRow(int row) override { rows.erase(rows.begin() + (row - 1)); }
    void Clear() override { rows.clear(); }
    std::string Cell(int row, int column) const override { return At(row).cells.at(column); }
    void SetCell(int row, int column, const std::string& text) override {
        At(row).cells.at(column) = text;
        if (onSetCell) onSetCell(row, column, text);
    }
    bool Checked(int row) const override { return At(row).checked; }
    void SetChecked(int row, bool checked) override { At(row).checked = checked; }
    std::string Mark(int row) const override { return At(row).mark; }
    void SetMark(int row, const std::string& mark) override { At(row).mark = mark; }
    bool Selected(int row) const override { return At(row).selected; }
    void SetSelected(int row, bool selected) override { At(row).selected = selected; }
    void SetRowColour(int row, std::uint32_t colour) override { At(row).colour = colour; }
    void AddColumn(const std::string& header, double width, bool centred) override {
        columns.push_back({header, width, centred});
    }
    int ColumnCount() const override { return static_cast<int>(columns.size()); }
    double ColumnWidth(int column) const override { return columns.at(column).width; }

    // Appends a row from its eight cell texts.
    void Add(std::array<std::string, kColumnCount> cells, bool checked = true) {
        rows.push_back(Row{cells, checked, "", false, kButtonTextColour});
    }

    std::vector<Row> rows;
    std::vector<ColumnInfo> columns;
    // Called after every cell write, to follow cells that change mid-run.
    std::function<void(int row, int column, const std::string& text)> onSetCell;

private:
    Row& At(int row) { return rows.at(row - 1); }
    const Row& At(int row) const { return rows.at(row - 1); }
};

class FakeMainView : public MainView {
public:
    struct TimerSlot {
        bool enabled = false;
        int interval = 0;
        double nextDue = 0;
    };

    void SetPanelText(int panel, const std::string& text) override {
        panels.at(panel) = text;
        panelWrites.push_back({panel, text});
    }
    std::string PanelText(int panel) const override { return panels.at(panel); }
    void SetEnabled(Control control, bool enabled) override { disabled[control] = !enabled; }
    bool IsEnabled(Control control) const override {
        auto found = disabled.find(control);
        return found == disabled.end() || !found->second;
    }
    void SetTimer(Timer timer, bool enabled) override;
    void SetTimerInterval(Timer timer, int milliseconds) override { timers[timer].interval = milliseconds; }
    bool TimerEnabled(Timer timer) const override {
        auto found = timers.find(timer);
        return found != timers.end() && found->second.enabled;
    }
    void SetCaption(const std::string& text) override { caption = text; }
    std::string RecordCaption() const override { return recordCaption; }
    void SetRecordCaption(const std::string& text) override { recordCaption = text; }
    void ShowRepeatState(bool on) override { repeatShownOn = on; }
    void SetFrameVisible(Frame frame, bool visible) override { hiddenFrames[frame] = !visible; }
    bool FrameVisible(Frame frame) const override {
        auto found = hiddenFrames.find(frame);
        return found == hiddenFrames.end() || !found->second;
    }
    void SetBusyPointer(bool busy) override { busyPointer = busy; }
    WindowState State() const override { return state; }
    void SetState(WindowState newState) override { state = newState; }
    void SetSizeTwips(double width, double height) override { widthTwips = width, heightTwips = height; }
    double HeightTwips() const override { return heightTwips; }
    void SetTopmost(bool topmost) override { this->topmost = topmost; }
    void Show() override { shown = true; }
    void FillDropDown(DropDown list, const std::vector<std::string>& entries, const std::string& text) override {
        dropDowns[list] = {entries, text};
    }

    // Fires the enabled timers that are due at `nowMs`, earliest first;
    // returns the time of the next due timer after that (or a huge value).
    double NextDue() const;
    void FireDue(double nowMs);

    std::function<void(Timer)> onTimer;  // the main window's WM_TIMER handler
    double nowMs = 0;                    // kept in step by FakeClock

    std::array<std::string, 7> panels;  // index 1 to 6
    std::vector<std::pair<int, std::string>> panelWrites;  // every write, in order
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
    bool topmost = false;
    bool shown = false;
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
    };
    BoxAnswer Show(const std::string& text, const std::string& title, BoxStyle style) override;

    std::deque<BoxAnswer> answers;
    std::vector<Shown> shown;
    std::function<void(const Shown&)> onShow;
};
