#include "editing/list_commands.h"

#include <string>

#include "core/app.h"
#include "core/error_log.h"
#include "core/vocabulary.h"
#include "editing/cell_editing.h"
#include "script/grid_rules.h"
#include "script/step_grid.h"

namespace {

void ForgetEditPosition(App& app) { app.cellEdit.row = app.cellEdit.column = -1; }

void AddNew(App& app) {
    LstAddNew(app, true, true);
    // Panel 6 counts the steps.
    Renumber(app);
}

void InsertStep(App& app) {
    StepGrid& grid = app.ui.grid;
    int selected = FirstSelectedRow(grid);
    if (selected < 1) return;
    LstAddNew(app, false, false);
    // The new row stands where the selected one was, which moved down a row.
    grid.SetSelected(selected + 1, false);
    Renumber(app);
}

void RemoveSteps(App& app) {
    StepGrid& grid = app.ui.grid;
    if (FirstSelectedRow(grid) < 1) return;
    for (int row = 1; row <= grid.RowCount();) {
        if (grid.Selected(row)) {
            grid.RemoveRow(row);  // the next row moved into this index
        } else {
            ++row;
        }
    }
    Renumber(app);
}

// Sets every row's check mark or selection from its current one.
template <class Change>
void ForEveryRow(StepGrid& grid, Change change) {
    for (int row = 1; row <= grid.RowCount(); ++row) change(row);
}

void MakeSame(App& app) {
    StepGrid& grid = app.ui.grid;
    int column = app.cellEdit.column;
    int source = FirstSelectedRow(grid);
    if (column < 0 || source < 1) return;
    bool checked = grid.Checked(source);
    std::string value = column == kColNumber ? (checked ? "CHECKED" : "NOT CHECKED") : grid.Cell(source, column);
    bool selectedOnly = MoreThanOneSelected(grid);
    std::string question = std::string("Are you sure you want to change ") + (selectedOnly ? "SELECTED" : "ALL") +
                           " values in " + kColumnHeaders[column] + " column to " + value + "?";
    if (app.ui.boxes.Show(question, app.appTitle, BoxStyle::QuestionYesNo) == BoxAnswer::Yes) {
        std::string text = grid.Cell(source, column);
        ForEveryRow(grid, [&](int row) {
            if (selectedOnly && !grid.Selected(row)) return;
            if (column == kColNumber) {
                grid.SetChecked(row, checked);
            } else {
                grid.SetCell(row, column, text);
            }
            grid.SetMark(row, "");
        });
    }
    ForgetEditPosition(app);
}

void ClearList(App& app) {
    if (app.ui.boxes.Show("Are you sure you want to clear the list?", app.appTitle, BoxStyle::QuestionYesNo) !=
        BoxAnswer::Yes)
        return;
    // The next start begins empty too.
    app.os.files.Remove(app.scriptStorePath);
    app.ui.grid.Clear();
    app.ui.main.SetPanelText(6, "0");
}

struct CommandEntry {
    GridCommand command;
    const char* label;  // the error log's name of the handler
    void (*run)(App&);
};

constexpr CommandEntry kCommands[] = {
    {GridCommand::AddNew, "mnuAddNew", AddNew},
    {GridCommand::InsertStep, "mnuInsertStep", InsertStep},
    {GridCommand::RemoveStep, "mnuRemoveStep", RemoveSteps},
    {GridCommand::CheckAll, "mnuCheckAll",
     [](App& app) { ForEveryRow(app.ui.grid, [&](int row) { app.ui.grid.SetChecked(row, true); }); }},
    {GridCommand::UncheckAll, "mnuUncheckAll",
     [](App& app) { ForEveryRow(app.ui.grid, [&](int row) { app.ui.grid.SetChecked(row, false); }); }},
    {GridCommand::InvertChecked, "mnuInvertChecked",
     [](App& app) { ForEveryRow(app.ui.grid, [&](int row) { app.ui.grid.SetChecked(row, !app.ui.grid.Checked(row)); }); }},
    {GridCommand::SelectAll, "mnuSelectAll",
     [](App& app) { ForEveryRow(app.ui.grid, [&](int row) { app.ui.grid.SetSelected(row, true); }); }},
    {GridCommand::InvertSelection, "mnuInvertSel",
     [](App& app) { ForEveryRow(app.ui.grid, [&](int row) { app.ui.grid.SetSelected(row, !app.ui.grid.Selected(row)); }); }},
    {GridCommand::MakeSame, "mnuMakeSame", MakeSame},
    {GridCommand::ClearList, "mnuClearlst", ClearList},
    {GridCommand::ChangeSteps, "mnuChangeSteps", [](App& app) { RunSeam(app.seams.changeSteps); }},
};

}  // namespace

GridMenu FitGridMenu(const App& app, int row) {
    if (row < 1) return {false, false, false, "Remove Step(s)"};
    bool several = MoreThanOneSelected(app.ui.grid);
    return {!several, true, true, several ? "Remove Steps" : "Remove Step #" + std::to_string(row)};
}

void OpenGridMenu(App& app, int row) {
    GridMenu menu = FitGridMenu(app, row);
    app.cellEdit.row = -1;
    app.cellEdit.contextMenuShown = true;
    if (std::optional<GridCommand> chosen = app.ui.main.ChooseGridCommand(menu)) RunGridCommand(app, *chosen);
}

void GridKey(App& app, int keyCode) {
    constexpr int kDeleteKey = 46;
    constexpr int kF2Key = 113;
    if (keyCode == kDeleteKey) RunGridCommand(app, GridCommand::RemoveStep);
    if (keyCode == kF2Key) EditSelectedStep(app, kColX);
}

void RunGridCommand(App& app, GridCommand command) {
    for (const CommandEntry& entry : kCommands) {
        if (entry.command != command) continue;
        Trapped(app, entry.label, [&] { entry.run(app); });
        // Make same forgets the cell itself, also when it is answered No.
        if (command != GridCommand::MakeSame) ForgetEditPosition(app);
        return;
    }
}
