#include <gtest/gtest.h>

#include <algorithm>

#include "fakes/test_app.h"
#include "script/grid_rules.h"
#include "script/script_file.h"

namespace {

using Cells = std::array<std::string, kColumnCount>;

const Cells kNewStep = {"1", "-1", "-1", "No Click", "", "0", "0", "0"};

}  // namespace

TEST(SaveData, WritesOneCanonicalLinePerStepNumberedByPosition) {
    TestApp t;
    t.AddStep({"5", "-1", "-1", "No Click", "", "0", "0", "0"});
    t.AddStep({"9", "RND(1,5,0)", "300", "Left DblClick", "%winfoc Notepad", "1", "2.5", "3"}, false);
    ASSERT_TRUE(SaveData(t.app, false));
    EXPECT_EQ(t.ReadFile("Data.dat"),
              "True|||1||-1||-1||No Click||||0||0||0\r\n"
              "False|||2||RND(1,5,0)||300||Left DblClick||%winfoc Notepad||1||2.5||3\r\n");
}

TEST(SaveData, RoundTripGivesIdenticalBytes) {
    TestApp t;
    t.AddStep({"1", "10", "20", "Right Down", "  padded text  ", "0", "0", "0"});
    t.AddStep({"2", "-1", "-1", "Right Up", "a|b", "RND(0,1,2)", "0.5", "-1"}, false);
    t.AddStep({"3", "", "", "", "", "", "", ""});
    ASSERT_TRUE(SaveData(t.app, false));
    std::string first = t.ReadFile("Data.dat");
    t.grid.Clear();
    ASSERT_TRUE(ReadData(t.app, "", false));
    ASSERT_TRUE(SaveData(t.app, false));
    EXPECT_EQ(t.ReadFile("Data.dat"), first);
    EXPECT_FALSE(t.grid.Checked(2));
}

TEST(SaveData, NeverWritesNewRowsAndPurgeRemovesThem) {
    for (bool purge : {false, true}) {
        TestApp t;
        t.AddStep({"1", "1", "1", "No Click", "", "0", "0", "0"});
        LstAddNew(t.app, true, true);
        t.AddStep({"3", "3", "3", "No Click", "", "0", "0", "0"});
        ASSERT_EQ(t.grid.Mark(2), "NEW");
        ASSERT_TRUE(SaveData(t.app, purge));
        EXPECT_EQ(t.ReadFile("Data.dat"),
                  "True|||1||1||1||No Click||||0||0||0\r\nTrue|||2||3||3||No Click||||0||0||0\r\n")
            << purge;
        EXPECT_EQ(t.grid.RowCount(), purge ? 2 : 3);
        if (purge) {
            EXPECT_EQ(t.grid.Cell(2, kColNumber), "2");
            EXPECT_EQ(t.main.PanelText(6), "2");
        }
    }
}

TEST(SaveData, ShowsItsProgressAndRestoresTheWindow) {
    TestApp t;
    t.AddStep(kNewStep);
    bool hiddenWhileWriting = false;
    bool busyWhileWriting = false;
    t.files.onWrite = [&](const std::string&) {
        hiddenWhileWriting = !t.main.FrameVisible(Frame::Main);
        busyWhileWriting = t.main.busyPointer;
        return true;
    };
    ASSERT_TRUE(SaveData(t.app, true));
    EXPECT_TRUE(hiddenWhileWriting);
    EXPECT_TRUE(busyWhileWriting);
    EXPECT_TRUE(t.main.FrameVisible(Frame::Main));
    EXPECT_FALSE(t.main.busyPointer);
    std::vector<std::string> expected = {"Preparing for save... Please wait.", "Saving...  Please wait.",
                                         "Saved successfully."};
    EXPECT_EQ(t.main.statusTexts, expected);
}

TEST(SaveData, EmptyGridLeavesTheWorkingCopyAlone) {
    TestApp t;
    t.WriteFile("Data.dat", "True|||1||-1||-1||No Click||||0||0||0\r\n");
    EXPECT_TRUE(SaveData(t.app, true));
    EXPECT_EQ(t.ReadFile("Data.dat"), "True|||1||-1||-1||No Click||||0||0||0\r\n");
    EXPECT_TRUE(t.main.statusTexts.empty());
    EXPECT_FALSE(t.main.busyPointer);
}

TEST(SaveData, FailedWriteKeepsThePreviousFileAndReportsFailure) {
    TestApp t;
    const std::string previous = "False|||1||7||7||Left Up||||0||0||0\r\n";
    t.WriteFile("Data.dat", previous);
    t.AddStep(kNewStep);
    t.files.onWrite = [](const std::string&) { return false; };
    EXPECT_FALSE(SaveData(t.app, false));
    EXPECT_EQ(t.ReadFile("Data.dat"), previous);
    std::string log = t.ReadFile("Error.log");
    EXPECT_EQ(std::ranges::count(log, '\n'), 1);  // logged once, not again by an outer trap
    EXPECT_NE(log.find(" SaveData "), std::string::npos);
    EXPECT_TRUE(t.main.FrameVisible(Frame::Main));
    EXPECT_FALSE(t.main.busyPointer);
    EXPECT_NE(t.main.statusTexts.back(), "Saved successfully.");
}
