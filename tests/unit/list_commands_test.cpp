#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "editing/cell_editing.h"
#include "editing/list_commands.h"
#include "fakes/test_app.h"

namespace {

// Five steps, rows 2 and 4 unchecked; the given rows selected.
struct ListApp : TestApp {
    explicit ListApp(std::vector<int> selected = {}) {
        AddColumns();
        for (int row = 1; row <= 5; ++row) {
            AddStep({std::to_string(row), std::to_string(row * 10), "0", "Left Click", "k" + std::to_string(row), "0",
                     "1", "0"},
                    row % 2 == 1);
        }
        for (int row : selected) grid.SetSelected(row, true);
    }
};

TEST(GridMenu, FitsTheEntriesToThePlaceAndTheSelection) {
    struct Case {
        int row;  // under the pointer, 0 for below the rows
        std::vector<int> selected;
        bool insert, remove, makeSame;
        std::string removeCaption;
    };
    const Case cases[] = {
        {0, {2}, false, false, false, "Remove Step(s)"},
        {3, {3}, true, true, true, "Remove Step #3"},
        {3, {}, true, true, true, "Remove Step #3"},
        {3, {2, 3}, false, true, true, "Remove Steps"},
    };
    for (const Case& test : cases) {
        ListApp t(test.selected);
        t.main.gridCommand.reset();
        OpenGridMenu(t.app, test.row);
        const GridMenu& menu = t.main.gridMenus.at(0);
        EXPECT_EQ(menu.removeCaption, test.removeCaption);
        EXPECT_EQ(std::tuple(menu.insertEnabled, menu.removeEnabled, menu.makeSameEnabled),
                  std::tuple(test.insert, test.remove, test.makeSame))
            << test.removeCaption << " on row " << test.row;
    }
}

TEST(GridMenu, TheClickOfTheRightButtonOpensNoEditor) {
    ListApp t({3});
    GridMouseDown(t.app, 1000, 3);
    OpenGridMenu(t.app, 3);
    GridClick(t.app);
    EXPECT_FALSE(t.cells.Visible(CellEditor::Text));
    GridMouseDown(t.app, 1000, 3);
    GridClick(t.app);
    EXPECT_TRUE(t.cells.Visible(CellEditor::Text)) << "only that one click is swallowed";
}

TEST(ListCommands, ChecksAndSelectionsChangeEveryRow) {
    const std::tuple<GridCommand, std::string, std::string> cases[] = {
        // command, check marks, selection afterwards (from 10101 and 01100)
        {GridCommand::CheckAll, "11111", "01100"},
        {GridCommand::UncheckAll, "00000", "01100"},
        {GridCommand::InvertChecked, "01010", "01100"},
        {GridCommand::SelectAll, "10101", "11111"},
        {GridCommand::InvertSelection, "10101", "10011"},
    };
    for (const auto& [command, checks, selection] : cases) {
        ListApp t({2, 3});
        RunGridCommand(t.app, command);
        EXPECT_EQ(t.Flags(&StepGrid::Checked), checks);
        EXPECT_EQ(t.Flags(&StepGrid::Selected), selection);
    }
}

TEST(ListCommands, AddInsertAndRemoveRenumberTheSteps) {
    ListApp t({3});
    RunGridCommand(t.app, GridCommand::AddNew);
    EXPECT_EQ(t.grid.RowCount(), 6);
    EXPECT_EQ(t.grid.Row(6).cells, (std::array<std::string, kColumnCount>{"6", "-1", "-1", "No Click", "", "0", "0", "0"}));
    EXPECT_EQ(t.grid.Mark(6), "NEW");
    EXPECT_EQ(t.Flags(&StepGrid::Selected), "000001");
    EXPECT_EQ(t.main.PanelText(6), "6");

    t.grid.SetSelected(6, false);
    t.grid.SetSelected(2, true);
    RunGridCommand(t.app, GridCommand::InsertStep);
    EXPECT_EQ(t.Column(kColX), "10 -1 20 30 40 50 -1");
    EXPECT_EQ(t.Column(kColNumber), "1 2 3 4 5 6 7");
    EXPECT_EQ(t.Flags(&StepGrid::Selected), "0100000");

    for (int row : {2, 3, 4}) t.grid.SetSelected(row, true);
    RunGridCommand(t.app, GridCommand::RemoveStep);
    EXPECT_EQ(t.Column(kColX), "10 40 50 -1");
    EXPECT_EQ(t.Column(kColNumber), "1 2 3 4");
    EXPECT_EQ(t.main.PanelText(6), "4");
    EXPECT_EQ(t.app.cellEdit.row, -1);
}

TEST(ListCommands, MakeSameAsksAndCopiesTheSourceToAllOrToTheSelectedRows) {
    struct Case {
        std::vector<int> selected;
        double x;  // the column under the right press
        BoxAnswer answer;
        std::string question;
        int column;
        std::string after;  // the column's cells, or the check marks for "#"
        bool fifthChanged;  // row 5 was changed, which clears its mark
    };
    const Case cases[] = {
        {{2}, 1000, BoxAnswer::Yes, "Are you sure you want to change ALL values in X column to 20?", kColX,
         "20 20 20 20 20", true},
        {{2, 4}, 1000, BoxAnswer::Yes, "Are you sure you want to change SELECTED values in X column to 20?", kColX,
         "10 20 30 20 50", false},
        {{2}, 1000, BoxAnswer::No, "Are you sure you want to change ALL values in X column to 20?", kColX,
         "10 20 30 40 50", false},
        {{2}, 400, BoxAnswer::Yes, "Are you sure you want to change ALL values in # column to NOT CHECKED?",
         kColNumber, "00000", true},
        {{1, 2}, 400, BoxAnswer::Yes, "Are you sure you want to change SELECTED values in # column to CHECKED?",
         kColNumber, "11101", false},
    };
    for (const Case& test : cases) {
        ListApp t(test.selected);
        t.grid.SetMark(5, "NEW");
        t.boxes.answers = {test.answer};
        GridMouseDown(t.app, test.x, test.selected.front());
        t.main.gridCommand = GridCommand::MakeSame;
        OpenGridMenu(t.app, test.selected.front());
        EXPECT_EQ(t.boxes.Texts(), std::vector<std::string>{test.question});
        EXPECT_EQ(test.column == kColNumber ? t.Flags(&StepGrid::Checked) : t.Column(test.column), test.after)
            << test.question;
        EXPECT_EQ(t.grid.Mark(5), test.fifthChanged ? "" : "NEW") << test.question;
        EXPECT_EQ(t.app.cellEdit.column, -1);
    }
}

TEST(ListCommands, ClearingTheListAsksAndThenDeletesTheWorkingCopy) {
    for (BoxAnswer answer : {BoxAnswer::No, BoxAnswer::Yes}) {
        ListApp t;
        t.WriteFile("Data.dat", "True|||1||0||0||No Click||||0||0||0\r\n");
        t.boxes.answers = {answer};
        RunGridCommand(t.app, GridCommand::ClearList);
        EXPECT_EQ(t.boxes.Texts(), std::vector<std::string>{"Are you sure you want to clear the list?"});
        bool cleared = answer == BoxAnswer::Yes;
        EXPECT_EQ(t.grid.RowCount(), cleared ? 0 : 5);
        EXPECT_EQ(t.Exists("Data.dat"), !cleared);
        EXPECT_EQ(t.main.PanelText(6), cleared ? "0" : "");
    }
}

TEST(ListCommands, ChangeNumberOfStepsIsTheSettingsPanelsCommand) {
    ListApp t;
    int asked = 0;
    t.app.seams.changeSteps = [&] { ++asked; };
    RunGridCommand(t.app, GridCommand::ChangeSteps);
    EXPECT_EQ(asked, 1);
}

}  // namespace
