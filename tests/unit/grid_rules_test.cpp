#include <gtest/gtest.h>

#include "fakes/test_app.h"
#include "script/grid_rules.h"

namespace {

using Cells = std::array<std::string, kColumnCount>;

void AddRows(StepGrid& grid, std::initializer_list<const char*> numbers) {
    for (const char* number : numbers) AppendStep(grid, {number, "5", "5", "Left Click", "k", "1", "1", "1"});
}

}  // namespace

TEST(LstAddNew, InsertsBeforeTheSelectedRowWithItsIndexAndWithoutOneLogsAnError) {
    TestApp t;
    AddRows(t.grid, {"1", "2", "3"});
    LstAddNew(t.app, false, false);
    EXPECT_EQ(t.grid.RowCount(), 3);
    EXPECT_NE(t.ReadFile("Error.log").find(" 91 lstAddNew 0"), std::string::npos);
    t.grid.SetSelected(2, true);
    LstAddNew(t.app, false, false);
    ASSERT_EQ(t.grid.RowCount(), 4);
    EXPECT_EQ(t.Column(kColNumber), "1 2 2 3");
    EXPECT_EQ(t.Column(kColButton), "Left Click No Click Left Click Left Click");
    EXPECT_EQ(t.Flags(&StepGrid::Selected), "0110");  // the others stay selected
}

TEST(LstAddNew, MarksNewOnlyWhileTheRecorderIsIdle) {
    for (const char* caption : {"RECORD", "PRESS ESCAPE TO STOP", "record"}) {
        TestApp t;
        t.main.recordCaption = caption;
        LstAddNew(t.app, true, true);
        EXPECT_EQ(t.grid.Mark(1), std::string(caption) == "RECORD" ? "NEW" : "") << caption;
    }
}

TEST(LstAddNew, AppendsAnUncheckedDefaultStepSelectedAndDeselectsOthersOnlyWhenAsked) {
    for (bool deselect : {false, true}) {
        TestApp t;
        AddRows(t.grid, {"1", "2", "3"});
        t.grid.SetSelected(1, true);
        t.grid.SetSelected(3, true);
        LstAddNew(t.app, true, deselect);
        ASSERT_EQ(t.grid.RowCount(), 4);
        EXPECT_EQ(t.grid.Row(4).cells, (Cells{"4", "-1", "-1", "No Click", "", "0", "0", "0"}));
        EXPECT_FALSE(t.grid.Checked(4));
        EXPECT_EQ(t.Flags(&StepGrid::Selected), deselect ? "0001" : "1011");
    }
}

TEST(Renumber, NumbersRowsWithoutGapsAndShowsTheCount) {
    TestApp t;
    AddRows(t.grid, {"5", "9", "12", "x", ""});
    Renumber(t.app);
    EXPECT_EQ(t.Column(kColNumber), "1 2 3 4 5");
    EXPECT_EQ(t.main.PanelText(6), "5");
    t.grid.Clear();
    Renumber(t.app);
    EXPECT_EQ(t.main.PanelText(6), "0");
}
