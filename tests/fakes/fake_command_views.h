#pragma once
// Stand-ins for the file dialogs, the about frame, the keystroke-text editor,
// the grid's cell editors, the hint panel, the step-count frame, the update
// window and the settings panel.
#include <deque>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "app/about_box.h"
#include "core/cell_editor_view.h"
#include "core/file_dialogs.h"
#include "core/hint_view.h"
#include "core/runtime_error.h"
#include "core/settings_panel_view.h"
#include "core/step_count_view.h"
#include "core/text_input_view.h"
#include "core/updates_view.h"
#include "fakes/fake_views.h"

// Records every dialog request and answers from a script: each answer is a
// chosen path, or nothing for Cancel. With no answer left the user cancels.
class ScriptedDialogs : public FileDialogs {
public:
    struct Shown {
        bool save;
        FileDialogRequest request;
    };
    std::optional<std::string> Open(const FileDialogRequest& request) override { return Answer(false, request); }
    std::optional<std::string> Save(const FileDialogRequest& request) override { return Answer(true, request); }

    std::deque<std::optional<std::string>> answers;
    std::vector<Shown> shown;
    bool fail = false;  // the dialog cannot be opened
    std::function<void(const Shown&)> onShow;

private:
    std::optional<std::string> Answer(bool save, const FileDialogRequest& request) {
        shown.push_back({save, request});
        if (onShow) onShow(shown.back());
        if (fail) throw RuntimeError(errors::kInvalidCall, "CommDlgExtendedError 65535");
        if (answers.empty()) return std::nullopt;
        std::optional<std::string> answer = answers.front();
        answers.pop_front();
        return answer;
    }
};

class FakeAboutView : public AboutView {
public:
    void SetTexts(const std::string& titleText, const std::string& buildText) override {
        title = titleText, build = buildText;
    }
    // The centred frame's corner is at 1000, 1000.
    double FrameWidth() const override { return 4000; }
    double FrameHeight() const override { return 1000; }
    double InnerWidth() const override { return 6000; }
    double InnerHeight() const override { return 3000; }
    void MoveTo(double newLeft, double newTop) override {
        left = newLeft, top = newTop;
        tops.push_back(newTop);
    }
    double Top() const override { return top; }
    void SetVisible(bool shown) override { visible = shown; }
    bool Visible() const override { return visible; }

    double left = 0;
    double top = 0;
    bool visible = false;
    std::string title;
    std::string build;
    std::vector<double> tops;  // every top the frame was moved to
};

// The keystroke-text editor: `user` plays what the user does while it is open
// (paste text, press buttons through the events).
class FakeTextInputView : public TextInputView {
public:
    void Run(const std::array<std::string, 3>& labels, const std::string& opened, TextInputEvents& events) override {
        reference = labels, text = opened, open = true, ++runs;
        if (user) user(*this, events);
        open = false;
    }
    std::string Text() const override { return text; }
    void SetText(const std::string& newText) override { text = newText; }
    void SetPickerShown(bool shown) override { picker = shown; }
    bool PickerShown() const override { return picker; }
    void Close() override { closedByProgram = open; }

    // Pastes `pasted` at the end of the text: one change.
    void Paste(TextInputEvents& events, const std::string& pasted) {
        text += pasted;
        events.TextChanged();
    }

    std::function<void(FakeTextInputView&, TextInputEvents&)> user;
    std::array<std::string, 3> reference;
    std::string text;
    bool picker = false;
    bool open = false;
    bool closedByProgram = false;
    int runs = 0;
};

// txtCell and cmbDrop: the user's typing is SetText; the view remembers
// where each editor was opened.
class FakeCellEditors : public CellEditorView {
public:
    void Open(CellEditor editor, int, int column, const std::string& text) override {
        slots[editor] = {true, text, column};
    }
    void Hide(CellEditor editor) override { slots[editor].visible = false; }
    bool Visible(CellEditor editor) const override { return ValueOr(slots, editor, {}).visible; }
    std::string Text(CellEditor editor) const override { return ValueOr(slots, editor, {}).text; }
    void SetText(const std::string& text, bool) override { slots[CellEditor::Text].text = text; }

    struct Slot {
        bool visible = false;
        std::string text;
        int column = 0;
    };
    std::map<CellEditor, Slot> slots;
};

// fraDYK: remembers what it shows.
class FakeHintView : public HintView {
public:
    void SetTexts(const std::string& newCaption, const std::string& newHint) override {
        caption = newCaption, hint = newHint;
    }
    std::string Caption() const override { return caption; }
    std::string Hint() const override { return hint; }
    void SetDontShow(bool checked) override { dontShow = checked; }
    bool DontShow() const override { return dontShow; }
    void Centre() override { ++centred; }
    void SetVisible(bool shown) override { visible = shown; }
    bool Visible() const override { return visible; }

    std::string caption;
    std::string hint;
    bool dontShow = false;
    bool visible = false;
    int centred = 0;
};

// txtSteps: like the real text box it reports every change of its text,
// also one the program makes, through `onChange`.
class FakeStepCountView : public StepCountView {
public:
    std::string Text() const override { return text; }
    void SetText(const std::string& newText) override {
        text = newText, selected = false;
        if (onChange) onChange();
    }
    void SelectAll() override { selected = true; }
    void Centre() override { ++centred; }

    // What the user types over the selection or at the end of the text.
    void Type(const std::string& typed) {
        text = selected ? typed : text + typed, selected = false;
        if (onChange) onChange();
    }

    std::function<void()> onChange;
    std::string text;
    bool selected = false;  // all of the text, with the focus
    int centred = 0;
};

// frmUpdates: loads, then the user does `user` (by default: closes it).
class FakeUpdatesView : public UpdatesView {
public:
    void Run(const std::string& shownHeading, UpdatesEvents& events) override {
        heading = shownHeading, downloadEnabled = false, open = true;
        events.Loaded();
        if (open) user(events);
    }
    void SetDisplay(const std::string& text) override { displays.push_back(text); }
    void SetDownloadEnabled(bool enabled) override { downloadEnabled = enabled; }
    WindowHandle Window() const override { return kWindow; }
    void Close() override { open = false; }

    static constexpr WindowHandle kWindow = 77;
    std::function<void(UpdatesEvents&)> user = [](UpdatesEvents& events) { events.Close(); };
    std::string heading;
    std::vector<std::string> displays;  // lblDisplay's texts in turn
    bool downloadEnabled = false;
    bool open = false;
};

// frmSettings: its check boxes by key, its place and the frame's slide, in
// the units the window uses (screen pixels for the place, twips for widths).
class FakeSettingsPanelView : public SettingsPanelView {
public:
    void SetOption(Setting key, int value) override { options[key] = value; }
    int Option(Setting key) const override { return ValueOr(options, key, 0); }
    void SetVisible(bool shown) override { visible = shown; }
    bool Visible() const override { return visible; }
    void SetKeepAttached(bool enabled) override { keepAttached = enabled; }
    bool KeepAttached() const override { return keepAttached; }
    Rect Bounds() const override { return bounds; }
    void MoveTo(int left, int top) override {
        bounds = {left, top, left + bounds.right - bounds.left, top + bounds.bottom - bounds.top};
        ++moves;
    }
    void SetWidth(double twips) override { widths.push_back(twips); }
    double FrameWidth() const override { return 2700; }
    void SetFrameLeft(double twips) override { frameLefts.push_back(twips); }

    std::map<Setting, int> options;
    bool visible = false;
    bool keepAttached = false;
    Rect bounds;
    int moves = 0;
    std::vector<double> widths;      // every width the panel was given, in order
    std::vector<double> frameLefts;  // every left edge fraOptions was given, in order
};
