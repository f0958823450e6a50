#include <gtest/gtest.h>

#include "app/init.h"
#include "editing/column_widths.h"
#include "fakes/fake_startup.h"

namespace {

// Init over a Settings.ini with the given [MAIN] lines, none when empty.
struct InitRun : StartupApp {
    explicit InitRun(const std::string& settings) {
        if (!settings.empty()) WriteFile("Settings.ini", "[MAIN]\r\n" + settings);
        Init(app, false, services);
    }
    std::vector<double> Widths() const {
        std::vector<double> widths;
        for (const GridColumn& column : grid.Columns()) widths.push_back(column.widthTwips);
        return widths;
    }
};

}  // namespace

TEST(Init, BuildsTheColumnsFromColumnWidths) {
    const std::pair<const char*, std::vector<double>> cases[] = {
        {"", kFirstRunWidths},
        {"ColWidth=   \r\n", kFirstRunWidths},
        {"ColWidth=900,500,500,1000,1000,600,600,700\r\n", {900, 500, 500, 1000, 1000, 600, 600, 700}},
        {"ColWidth=1,2,3,4,5,6,7,8,9\r\n", {1, 2, 3, 4, 5, 6, 7, 8}},
    };
    for (const auto& [setting, widths] : cases) {
        InitRun run(setting);
        EXPECT_EQ(run.Widths(), widths) << setting;
        EXPECT_FALSE(run.Exists("Error.log")) << setting;
    }
    InitRun run("");
    for (const GridColumn& column : run.grid.Columns()) EXPECT_EQ(column.centred, column.header != "#");
    // Init measures the grid, so the next save writes the widths without blanks.
    EXPECT_EQ(run.app.columnWidths[1], "600");
}

TEST(Init, BadColumnWidthsEndInitWithTheColumnsBuiltSoFar) {
    const std::tuple<const char*, std::size_t, const char*> cases[] = {
        {"ColWidth=800,600\r\n", 2, "Subscript out of range 9 Init 0"},
        {"ColWidth=800,abc,600,1500,1125,700,700,800\r\n", 1, "Type mismatch 13 Init 0"},
    };
    for (const auto& [setting, columns, logged] : cases) {
        InitRun run(setting);
        EXPECT_EQ(static_cast<std::size_t>(run.grid.ColumnCount()), columns) << setting;
        EXPECT_NE(run.ReadFile("Error.log").find(logged), std::string::npos) << setting;
        EXPECT_EQ(run.main.caption, "") << setting;
        EXPECT_TRUE(run.services.Called("LoadHookLibrary"));
    }
    // The short list is completed from the defaults, so the next save heals it.
    InitRun run("ColWidth=800,600\r\n");
    EXPECT_EQ(run.app.columnWidths[0], "800");
    EXPECT_EQ(run.app.columnWidths[2], " 600");
    EXPECT_EQ(run.app.columnWidths[7], " 800");
}

TEST(Init, SizesTheWindowFromHeight) {
    const std::pair<const char*, double> cases[] = {
        {"", 6610}, {"Height=\r\n", 6610}, {"Height=7000\r\n", 7000}, {"Height=abc\r\n", 6610}};
    for (const auto& [setting, height] : cases) {
        InitRun run(setting);
        EXPECT_EQ(run.main.widthTwips, 6855) << setting;
        EXPECT_EQ(run.main.heightTwips, height) << setting;
    }
}

TEST(Init, FillsCaptionListsAndPanels) {
    InitRun run("StopKey=117\r\n");
    const FakeMainView& main = run.main;
    EXPECT_EQ(main.caption, "Klickwerk v1.0");
    EXPECT_EQ(main.dropDowns.at(DropDown::Button).entries.size(), 9u);
    EXPECT_EQ(main.dropDowns.at(DropDown::Button).shown, "No Click");
    EXPECT_EQ(main.dropDowns.at(DropDown::StopKeys).entries.size(), 10u);
    EXPECT_EQ(main.dropDowns.at(DropDown::StopKeys).shown, "");
    EXPECT_EQ(run.app.stopKeyCode, 117);
    EXPECT_EQ(main.PanelText(3), "");
    EXPECT_EQ(main.PanelText(6), "0");
    EXPECT_TRUE(run.services.Called("LoadHookLibrary"));
    EXPECT_EQ(run.app.osName, "");

    InitRun escape("StopKey=0\r\n");
    EXPECT_EQ(escape.main.dropDowns.at(DropDown::StopKeys).shown, "ESCAPE");
    EXPECT_EQ(escape.main.PanelText(3), "ESCAPE");
    EXPECT_EQ(escape.app.stopKeyCode, 27);
}

TEST(Init, AppendsTheWorkingCopyUnlessSkippedAndTakesTheUsersDecimalSeparator) {
    for (bool skip : {false, true}) {
        StartupApp t;
        t.WriteFile("Data.dat", "True|||1||1||1||No Click||||0||0||0\r\nFalse|||2||2||2||No Click||||0||0||0\r\n");
        t.WriteFile("Settings.ini", "[MAIN]\r\nGRepeat=1\r\n");
        t.osInfo.decimalSeparator = ',';
        Init(t.app, skip, t.services);
        EXPECT_EQ(t.grid.RowCount(), skip ? 0 : 2) << skip;
        EXPECT_EQ(t.main.PanelText(6), skip ? "0" : "2") << skip;
        EXPECT_EQ(t.app.settings.repeatState, "1") << skip;
        EXPECT_EQ(t.app.decimalSeparator, ',');
    }
}

TEST(ColumnWidths, NewWidthRoundsEachColumnHalfToEvenAndRecordsTheTotal) {
    TestApp t;
    for (double width : {800.5, 601.5, 600.4, 1500.0, 1125.0, 700.0, 700.0, 799.6}) t.grid.AddColumn("c", width, true);
    NewWidth(t.app);
    std::array<std::string, kColumnCount> expected{"800", "602", "600", "1500", "1125", "700", "700", "800"};
    EXPECT_EQ(t.app.columnWidths, expected);
    EXPECT_EQ(t.app.columnWidthTotal, 6827);
}

TEST(ColumnWidths, TheTimerRebuildsOnlyWhenTheTotalChanged) {
    TestApp t;
    t.AddColumns();
    NewWidth(t.app);
    t.app.columnWidths[0] = "stale";
    OnColResizeTimer(t.app);
    EXPECT_EQ(t.app.columnWidths[0], "stale");
    t.grid.SetColumnWidth(4, 2000);
    OnColResizeTimer(t.app);
    EXPECT_EQ(t.app.columnWidths[0], "800");
    EXPECT_EQ(t.app.columnWidths[4], "2000");
}
