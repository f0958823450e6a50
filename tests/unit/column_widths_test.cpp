#include <gtest/gtest.h>

#include "editing/column_widths.h"
#include "fakes/test_app.h"

namespace {

class ColumnWidths : public ::testing::Test {
protected:
    void AddColumns(std::initializer_list<double> widths) {
        for (double width : widths) t.grid.AddColumn("c", width, true);
    }
    TestApp t;
};

TEST_F(ColumnWidths, NewWidthRoundsEachColumnHalfToEvenAndRecordsTheTotal) {
    AddColumns({800.5, 601.5, 600.4, 1500, 1125, 700, 700, 799.6});
    NewWidth(t.app);
    std::array<std::string, kColumnCount> expected{"800", "602", "600", "1500", "1125", "700", "700", "800"};
    EXPECT_EQ(t.app.columnWidths, expected);
    EXPECT_EQ(t.app.columnWidthTotal, 6827);
}

TEST_F(ColumnWidths, TheTimerRebuildsOnlyWhenTheTotalChanged) {
    AddColumns({800, 600, 600, 1500, 1125, 700, 700, 800});
    NewWidth(t.app);
    t.app.columnWidths[0] = "stale";
    OnColResizeTimer(t.app);
    EXPECT_EQ(t.app.columnWidths[0], "stale");
    t.grid.SetColumnWidth(4, 2000);
    OnColResizeTimer(t.app);
    EXPECT_EQ(t.app.columnWidths[0], "800");
    EXPECT_EQ(t.app.columnWidths[4], "2000");
}

}  // namespace
