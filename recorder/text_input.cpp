#include "recorder/text_input.h"

#include "core/app.h"
#include "core/text_input_view.h"
#include "core/vocabulary.h"
#include "playback/run_controls.h"
#include "recorder/run_test.h"
#include "script/script_file.h"
#include "script/step_grid.h"

namespace {

constexpr const char* kLineEnd = "\r\n";

std::string LetterLines(char prefix, const char* verb) {
    std::string lines;
    for (const NamedLetter& letter : NamedCommandLetters())
        lines += std::string{prefix, letter.letter} + " = " + verb + " " + letter.keyName + kLineEnd;
    return lines;
}

std::string OtherLines() {
    std::string lines = std::string("These keys require no release:") + kLineEnd + "%l or $l = Press CAPS LOCK" +
                        kLineEnd + "%F# or $F# = Press F# (except 10-12)" + kLineEnd + "F10-F12 are HotKeys" +
                        kLineEnd + kLineEnd + "Special commands:" + kLineEnd + "Syntax: %command (windowname)" +
                        kLineEnd + "Extended syntax for %winmov: add '; w,h'" + kLineEnd;
    for (const WindowCommand& command : kWindowCommands)
        lines += std::string(command.name) + " = " + command.meaning + kLineEnd;
    return lines;
}

// Typing a window command's name and its blank as the whole text means a
// title comes next, so the picker offers itself.
bool AsksForTitle(const std::string& text) {
    for (const WindowCommand& command : kWindowCommands) {
        if (text == std::string(command.name) + " ") return true;
    }
    return false;
}

class TextInputEditor : public TextInputEvents {
public:
    TextInputEditor(App& app, int row) : app_(app), view_(app.ui.textInput), row_(row) {}

    void TextChanged() override {
        if (!view_.PickerShown() && AsksForTitle(view_.Text())) OpenPicker();
    }
    void OpenPicker() override { view_.SetPickerShown(true); }
    void CancelPicker() override { view_.SetPickerShown(false); }
    void PickerDropped() override {
        // A window without a title adds nothing visible.
        std::string title = app_.os.windows.TitleAt(app_.os.input.GetCursorPos());
        view_.SetText(view_.Text() + title);
        view_.SetPickerShown(false);
    }
    void Confirm() override {
        std::string text = RunTest(app_, view_.Text(), false);
        view_.SetText(text);
        StepGrid& grid = app_.ui.grid;
        if (row_ >= 1 && row_ <= grid.RowCount()) {
            grid.SetCell(row_, kColAdditional, text);
            grid.SetMark(row_, "");
            grid.SetChecked(row_, true);
        }
        SaveData(app_, false);
        view_.Close();
    }
    void Cancel() override { view_.Close(); }

private:
    App& app_;
    TextInputView& view_;
    int row_;
};

}  // namespace

std::array<std::string, 3> KeystrokeReference() {
    return {LetterLines('%', "Press"), LetterLines('$', "Release"), OtherLines()};
}

void EditKeystrokeText(App& app, int row) {
    StepGrid& grid = app.ui.grid;
    if (row < 1 || row > grid.RowCount()) return;
    TextInputEditor editor(app, row);
    EnableControls(app, false, false);
    app.ui.textInput.Run(KeystrokeReference(), grid.Cell(row, kColAdditional), editor);
    EnableControls(app, true, false);
}
