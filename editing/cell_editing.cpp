#include "editing/cell_editing.h"

#include <algorithm>
#include <cmath>

#include "core/app.h"
#include "core/basic_text.h"
#include "core/error_log.h"
#include "core/status_line.h"
#include "editing/column_widths.h"
#include "recorder/text_input.h"
#include "script/grid_rules.h"
#include "script/script_file.h"
#include "script/step_grid.h"

namespace {

constexpr int kEnterKey = 13;
constexpr int kEscapeKey = 27;
constexpr int kSecondsPerMinute = 60;

bool StartsWithRnd(const std::string& text) { return Lower(text).rfind("rnd(", 0) == 0; }

bool IsRndForm(const std::string& text) { return StartsWithRnd(text) && text.back() == ')'; }

void Refuse(App& app, const std::string& message) {
    ShowStatus(app, message);
    app.ui.main.Beep();
}

bool EditorOpen(const App& app) {
    return app.ui.cells.Visible(CellEditor::Text) || app.ui.cells.Visible(CellEditor::DropDown);
}

// The click action a "Button" cell shows in cmbDrop; an unknown text shows the first.
std::string ShownAction(const std::string& cell) {
    auto found = std::find(kClickActions.begin(), kClickActions.end(), cell);
    return found == kClickActions.end() ? kClickActions.front() : *found;
}

void OpenEditor(App& app, int row) {
    CellEdit& edit = app.cellEdit;
    const std::string& cell = app.ui.grid.Cell(row, edit.column);
    edit.row = row;
    switch (edit.column) {
        case kColButton:
            edit.dropDownFilling = true;
            app.ui.cells.Open(CellEditor::DropDown, row, edit.column, ShownAction(cell));
            edit.dropDownFilling = false;
            break;
        case kColAdditional:
            EditKeystrokeText(app, row);
            edit.row = edit.column = -1;
            break;
        default:
            edit.textCancelled = false;
            app.ui.cells.Open(CellEditor::Text, row, edit.column, cell);
    }
}

bool Check(App& app) {
    CellEditorView& cells = app.ui.cells;
    std::string text = cells.Text(CellEditor::Text);
    if (text.empty()) return true;
    if (IsRndForm(text)) {
        if (std::count(text.begin(), text.end(), ',') != 2) {
            Refuse(app, "Incorrect RND syntax.  Use RND(#,#,#)");
            return false;
        }
        cells.SetText(Upper(text), false);
        return true;
    }
    int column = app.cellEdit.column;
    if (column == kColAdditional) return true;
    if (column >= kColMins && Val(text) < 0) {
        cells.SetText(NumberText(std::fabs(Val(text))), false);
        Refuse(app, "Must be a positive number.");
        return false;
    }
    // A leading "-" or "." skips the test on purpose: X and Y take negative
    // coordinates, and "r" lets an RND form still being typed through.
    char first = static_cast<char>(std::tolower(static_cast<unsigned char>(text[0])));
    if (first != '.' && first != '-' && first != 'r' && !IsNumeric(text)) {
        Refuse(app, "Can not be blank and must be a positive number.");
        cells.SetText("-1", true);
        return false;
    }
    return true;
}

// A committed number: its leading value, positive in the columns after
// "Additional"; seconds of a minute or more carry into "Mins".
std::string Normalised(App& app, int row, int column, const std::string& typed) {
    if (typed.empty()) return "-1";
    if (IsRndForm(typed)) return typed;
    double value = Val(typed);
    if (column > kColAdditional) value = std::fabs(value);
    if (column == kColSecs && value >= kSecondsPerMinute) {
        StepGrid& grid = app.ui.grid;
        double minutes = Val(grid.Cell(row, kColMins)) + IntPart(value / kSecondsPerMinute);
        grid.SetCell(row, kColMins, NumberText(minutes));
        value = CLng(value) % kSecondsPerMinute;
    }
    return NumberText(value);
}

void WriteCell(App& app, int row, int column, std::string text) {
    StepGrid& grid = app.ui.grid;
    grid.SetCell(row, column, std::move(text));
    grid.SetMark(row, "");
    grid.SetChecked(row, true);
}

void Update(App& app) {
    CellEdit& edit = app.cellEdit;
    if (edit.row < 1 || edit.column < 1) return;
    CellEditorView& cells = app.ui.cells;
    if (cells.Visible(CellEditor::DropDown)) {
        cells.Hide(CellEditor::DropDown);
        WriteCell(app, edit.row, edit.column, cells.Text(CellEditor::DropDown));
    } else {
        cells.Hide(CellEditor::Text);
        std::string text = cells.Text(CellEditor::Text);
        if (edit.column != kColAdditional) text = Normalised(app, edit.row, edit.column, text);
        WriteCell(app, edit.row, edit.column, text);
        cells.SetText("", false);
    }
    edit.row = edit.column = -1;
    SaveData(app, false);
}

void CheckAndUpdate(App& app) {
    if (CheckCell(app)) CellUpdate(app);
}

}  // namespace

void GridMouseDown(App& app, double xTwips, int row) {
    if (EditorOpen(app)) return;
    CellEdit& edit = app.cellEdit;
    if (row < 1) {
        edit.row = edit.column = -1;
        return;
    }
    NewWidth(app);
    // A point on the border between two columns belongs to the left one.
    long left = 0;
    for (int column = 0; column < kColumnCount; ++column) {
        long right = left + CLng(Val(app.columnWidths[column]));
        if (left <= xTwips && xTwips <= right) {
            edit.column = column;
            edit.columnLeft = left;
            return;
        }
        left = right;
    }
}

void GridClick(App& app) {
    CellEdit& edit = app.cellEdit;
    if (edit.contextMenuShown) {
        edit.contextMenuShown = false;
        return;
    }
    EditSelectedStep(app, edit.column);
}

void EditSelectedStep(App& app, int column) {
    app.cellEdit.column = column;
    if (column < kColX) return;
    StepGrid& grid = app.ui.grid;
    if (grid.RowCount() == 0) {
        ShowStatus(app, "List is empty.");
        return;
    }
    int row = FirstSelectedRow(grid);
    if (!app.ui.main.FrameVisible(Frame::Main) || row < 1) return;
    OpenEditor(app, row);
}

void CellTextChanged(App& app) {
    if (StartsWithRnd(app.ui.cells.Text(CellEditor::Text)))
        ShowStatus(app, "RND Syntax: RND(lowerbound, upperbound, roundoff)");
}

bool CellTextKey(App& app, int keyCode) {
    if (keyCode == kEnterKey) {
        CheckAndUpdate(app);
        return true;
    }
    if (keyCode == kEscapeKey) {
        app.cellEdit.textCancelled = true;
        app.ui.cells.Hide(CellEditor::Text);
        return true;
    }
    return false;
}

void CellTextFocusLost(App& app) {
    if (!app.cellEdit.textCancelled) CheckAndUpdate(app);
    app.cellEdit.textCancelled = false;
}

void DropDownSelected(App& app) {
    if (!app.cellEdit.dropDownFilling) CellUpdate(app);
}

bool DropDownKey(App& app, int keyCode) {
    // The list has no cancel: Esc keeps the entry shown.
    if (keyCode != kEscapeKey) return false;
    CellUpdate(app);
    return true;
}

void DropDownFocusLost(App& app) { CellUpdate(app); }

bool CheckCell(App& app) {
    bool passed = true;
    Trapped(app, "CheckCell", [&] { passed = Check(app); });
    return passed;
}

void CellUpdate(App& app) {
    Trapped(app, "CellUpdate", [&] { Update(app); });
}
