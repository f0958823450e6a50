#include <gtest/gtest.h>

#include "app/init.h"
#include "fakes/fake_startup.h"
#include "fakes/test_app.h"

namespace {

using Strings = std::vector<std::string>;

struct InitRun {
    TestApp t;
    FakeStartupServices services{t.app};

    explicit InitRun(const std::string& settings, bool skipWorkingCopy = false) {
        if (!settings.empty()) t.WriteFile("Settings.ini", "[MAIN]\r\n" + settings);
        Init(t.app, skipWorkingCopy, services);
    }
    std::vector<double> Widths() const {
        std::vector<double> widths;
        for (const GridColumn& column : t.grid.Columns()) widths.push_back(column.widthTwips);
        return widths;
    }
};

const std::vector<double> kDefaultWidths = {800, 600, 600, 1500, 1125, 700, 700, 800};

}  // namespace

TEST(Init, BuildsTheColumnsFromColumnWidths) {
    struct Case {
        const char* setting;
        std::vector<double> widths;
    } cases[] = {
        {"", kDefaultWidths},
        {"ColWidth=   \r\n", kDefaultWidths},
        {"ColWidth=900,500,500,1000,1000,600,600,700\r\n", {900, 500, 500, 1000, 1000, 600, 600, 700}},
        {"ColWidth=1,2,3,4,5,6,7,8,9\r\n", {1, 2, 3, 4, 5, 6, 7, 8}},
    };
    for (const Case& c : cases) {
        InitRun run(c.setting);
        EXPECT_EQ(run.Widths(), c.widths) << c.setting;
        EXPECT_FALSE(run.t.Exists("Error.log")) << c.setting;
    }
    InitRun run("");
    Strings headers;
    for (const GridColumn& column : run.t.grid.Columns()) {
        headers.push_back(column.header);
        EXPECT_EQ(column.centred, column.header != "#");
    }
    EXPECT_EQ(headers, (Strings{"#", "X", "Y", "Button", "Additional", "Mins", "Secs", "Repeat"}));
    // Init measures the grid, so the next save writes the widths without blanks.
    EXPECT_EQ(run.t.app.columnWidths[1], "600");
}

TEST(Init, BadColumnWidthsEndInitWithTheColumnsBuiltSoFar) {
    struct Case {
        const char* setting;
        std::size_t columns;
        const char* logged;
    } cases[] = {
        {"ColWidth=800,600\r\n", 2, "Subscript out of range 9 Init 0"},
        {"ColWidth=800,abc,600,1500,1125,700,700,800\r\n", 1, "Type mismatch 13 Init 0"},
    };
    for (const Case& c : cases) {
        InitRun run(c.setting);
        EXPECT_EQ(static_cast<std::size_t>(run.t.grid.ColumnCount()), c.columns) << c.setting;
        EXPECT_NE(run.t.ReadFile("Error.log").find(c.logged), std::string::npos) << c.setting;
        EXPECT_EQ(run.t.main.caption, "") << c.setting;
        EXPECT_TRUE(run.services.Called("LoadHookLibrary"));
    }
    // The short list is completed from the defaults, so the next save heals it.
    InitRun run("ColWidth=800,600\r\n");
    EXPECT_EQ(run.t.app.columnWidths[0], "800");
    EXPECT_EQ(run.t.app.columnWidths[2], " 600");
    EXPECT_EQ(run.t.app.columnWidths[7], " 800");
}

TEST(Init, SizesTheWindowFromHeight) {
    struct Case {
        const char* setting;
        double height;
    } cases[] = {{"", 6610}, {"Height=\r\n", 6610}, {"Height=7000\r\n", 7000}, {"Height=abc\r\n", 6610}};
    for (const Case& c : cases) {
        InitRun run(c.setting);
        EXPECT_EQ(run.t.main.widthTwips, 6855) << c.setting;
        EXPECT_EQ(run.t.main.heightTwips, c.height) << c.setting;
    }
}

TEST(Init, FillsCaptionListsAndPanels) {
    InitRun run("StopKey=117\r\n");
    const FakeMainView& main = run.t.main;
    EXPECT_EQ(main.caption, "Klickwerk v1.0");
    const auto& drop = main.dropDowns.at(DropDown::Button);
    EXPECT_EQ(drop.entries.size(), 9u);
    EXPECT_EQ(drop.entries.back(), "Right Up");
    EXPECT_EQ(drop.shown, "No Click");
    const auto& stopKeys = main.dropDowns.at(DropDown::StopKeys);
    EXPECT_EQ(stopKeys.entries.size(), 10u);
    EXPECT_EQ(stopKeys.shown, "");
    EXPECT_EQ(run.t.app.stopKeyCode, 117);
    EXPECT_EQ(main.PanelText(3), "");
    EXPECT_EQ(main.PanelText(6), "0");
    EXPECT_TRUE(run.services.Called("LoadHookLibrary"));
    EXPECT_EQ(run.t.app.osName, "");

    InitRun escape("StopKey=0\r\n");
    EXPECT_EQ(escape.t.main.dropDowns.at(DropDown::StopKeys).shown, "ESCAPE");
    EXPECT_EQ(escape.t.main.PanelText(3), "ESCAPE");
    EXPECT_EQ(escape.t.app.stopKeyCode, 27);
}

TEST(Init, AppendsTheWorkingCopyUnlessSkipped) {
    for (bool skip : {false, true}) {
        TestApp t;
        t.WriteFile("Data.dat", "True|||1||1||1||No Click||||0||0||0\r\nFalse|||2||2||2||No Click||||0||0||0\r\n");
        t.WriteFile("Settings.ini", "[MAIN]\r\nGRepeat=1\r\n");
        FakeStartupServices services(t.app);
        Init(t.app, skip, services);
        EXPECT_EQ(t.grid.RowCount(), skip ? 0 : 2) << skip;
        EXPECT_EQ(t.main.PanelText(6), skip ? "0" : "2") << skip;
        EXPECT_EQ(t.app.settings.repeatState, "1") << skip;
    }
}

TEST(Init, TakesTheUsersDecimalSeparator) {
    TestApp t;
    t.osInfo.decimalSeparator = ',';
    FakeStartupServices services{t.app};
    Init(t.app, true, services);
    EXPECT_EQ(t.app.decimalSeparator, ',');
}
