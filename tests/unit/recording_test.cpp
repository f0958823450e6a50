#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/app.h"
#include "playback_rig.h"
#include "recorder/input_hook.h"
#include "recorder/recording.h"
#include "recorder/run_test.h"

namespace {

constexpr int kShift = 16;
constexpr int kF11 = 122;
constexpr int kEscape = 27;

// The receiver's events as the hook library posts them, one letter each:
// d(own), u(p), m(ove), D(ouble click), k(ey down), K(ey up).
struct Event {
    char kind;
    int a = 0;
    int b = 0;
    int c = 0;
};

class Recording : public PlaybackRig {
protected:
    Recording() {
        t.clock.nowMs = 1000;
        app.clickRecord = [this] { RecordButton(app); };
    }

    std::vector<std::string> Row(int row) const {
        const StepRow& step = t.grid.Row(row);
        return {step.cells[kColX], step.cells[kColY], step.cells[kColButton], step.cells[kColAdditional],
                step.cells[kColRepeat], step.checked ? "checked" : "unchecked"};
    }

    void Send(const std::vector<Event>& events) {
        for (const Event& event : events) {
            switch (event.kind) {
                case 'd': RecordMouseDown(app, event.a, event.b, event.c); break;
                case 'u': RecordMouseUp(app, event.a, event.b, event.c); break;
                case 'm': RecordMouseMove(app, event.a, event.b); break;
                case 'D': RecordDoubleClick(app); break;
                case 'k': RecordKeyDown(app, event.a); break;
                case 'K': RecordKeyUp(app, event.a); break;
            }
        }
    }

    // Records the events and stops; returns the steps recorded.
    std::vector<std::vector<std::string>> Record(const std::vector<Event>& events) {
        RecordButton(app);
        Send(events);
        RecordButton(app);
        std::vector<std::vector<std::string>> rows;
        for (int row = 1; row <= t.grid.RowCount(); ++row) rows.push_back(Row(row));
        return rows;
    }
};

using Steps = std::vector<std::vector<std::string>>;

TEST_F(Recording, EachActionBecomesItsStep) {
    const std::pair<std::vector<Event>, Steps> cases[] = {
        {{{'d', 1, 100, 200}, {'u', 1, 100, 200}}, {{"100", "200", "Left Click", "", "0", "checked"}}},
        {{{'d', 2, 7, 8}, {'u', 2, 7, 8}}, {{"7", "8", "Right Click", "", "0", "checked"}}},
        {{{'d', 1, 10, 10}, {'m', 30, 30}, {'u', 1, 50, 60}},
         {{"10", "10", "Left Down", "", "0", "checked"}, {"50", "60", "Left Up", "", "0", "checked"}}},
        // A held key repeats its press: it is recorded once.
        {{{'m', 3, 4}, {'k', 'A'}, {'k', 'A'}, {'K', 'A'}, {'k', 'B'}, {'K', 'B'}, {'k', kF11}, {'K', kF11}},
         {{"3", "4", "No Click", "ab", "0", "checked"}}},
        {{{'k', kShift}, {'k', 'A'}, {'K', 'A'}, {'K', kShift}, {'K', kF11}}, {{"-1", "-1", "No Click", "%sa$s", "0", "checked"}}},
        {{{'k', kShift}, {'k', 'A'}, {'K', kShift}, {'K', 'A'}, {'K', kF11}}, {{"-1", "-1", "No Click", "%s$sa", "0", "checked"}}},
        {{{'k', 'X'}, {'K', 'X'}, {'k', 8}, {'k', 'Y'}, {'K', 'Y'}, {'K', kF11}}, {{"-1", "-1", "No Click", "y", "0", "checked"}}},
        // Presses and releases at negative positions are no clicks.
        {{{'d', 1, 9, 9}, {'u', 1, 9, 9}, {'d', 1, -5, 9}, {'u', 1, -5, 9}}, {{"9", "9", "Left Click", "", "0", "checked"}}},
        {{}, {}},
    };
    for (const auto& [events, steps] : cases) {
        t.grid.Clear();
        EXPECT_EQ(Record(events), steps) << steps.size();
    }
}

// The row the second click filled is current again, and unchecked at the end.
TEST_F(Recording, TheSameClickTwiceCountsInRepeat) {
    t.boxes.answers = {BoxAnswer::Ok, BoxAnswer::Yes};
    EXPECT_EQ(Record({{'d', 1, 9, 9}, {'u', 1, 9, 9}, {'d', 1, 9, 9}, {'u', 1, 9, 9}}),
              (Steps{{"9", "9", "Left Click", "", "1", "checked"}}));
    EXPECT_EQ(t.boxes.Texts()[1],
              "There are 1 steps that are not part of this recording.  They are disabled (unchecked).  Would you "
              "like to remove those steps?");
}

TEST_F(Recording, ADoubleClickInsideTheClickWaitIsOneStep) {
    RecordButton(app);
    // The second press and its release arrive while the first click waits.
    At(t.clock.nowMs + 100, [this] { Send({{'D'}, {'u', 1, 5, 5}}); });
    Send({{'d', 1, 5, 5}, {'u', 1, 5, 5}});
    RecordButton(app);
    ASSERT_EQ(t.grid.RowCount(), 1);
    EXPECT_EQ(Row(1), (std::vector<std::string>{"5", "5", "Left DblClick", "", "0", "checked"}));
}

TEST_F(Recording, StartingAndStoppingSetTheWindowTheHooksAndTheBoxes) {
    t.main.panels[6] = "0";
    RecordButton(app);
    EXPECT_EQ(t.main.recordCaption, "ESCAPE TO STOP");
    EXPECT_FALSE(t.main.gridMultiSelect);
    EXPECT_TRUE(t.main.TimerEnabled(Timer::Stop));
    EXPECT_FALSE(t.main.TimerEnabled(Timer::ShiftNext) || t.main.TimerEnabled(Timer::Hotkey));
    EXPECT_FALSE(t.main.IsEnabled(Control::ToolSave) || t.main.IsEnabled(Control::Start));
    EXPECT_TRUE(t.main.IsEnabled(Control::Record));
    EXPECT_EQ(t.hooks.calls, (std::vector<std::string>{"install mouse", "init mouse 485 1", "install keys", "init keys 485 2"}));
    ASSERT_EQ(t.grid.RowCount(), 1);
    EXPECT_TRUE(t.grid.Selected(1));
    EXPECT_EQ(t.grid.Mark(1), "");

    RecordButton(app);
    EXPECT_EQ(t.main.recordCaption, "RECORD");
    EXPECT_EQ(t.grid.RowCount(), 0);
    EXPECT_TRUE(t.main.gridMultiSelect && t.main.TimerEnabled(Timer::ShiftNext) && t.main.TimerEnabled(Timer::Hotkey));
    EXPECT_FALSE(t.main.TimerEnabled(Timer::Stop));
    EXPECT_TRUE(t.main.IsEnabled(Control::ToolSave) && t.main.IsEnabled(Control::Start));
    EXPECT_EQ(std::vector<std::string>(t.hooks.calls.begin() + 4, t.hooks.calls.end()),
              (std::vector<std::string>{"remove 2", "remove 1"}));
    EXPECT_EQ(t.boxes.Texts(), (std::vector<std::string>{
                                   "Press ESCAPE to stop recording.\r\nPress F11 to create a new step manually.\r\n"
                                   "Do not press F10",
                                   "Recording completed successfully."}));
}

TEST_F(Recording, TheNoticeNamesTheStopKeyAndEnterWhenItMakesSteps) {
    app.stopKeyCode = 116;
    app.settings.enter4Step = 1;
    RecordButton(app);
    EXPECT_EQ(t.main.recordCaption, "F5 TO STOP");
    EXPECT_EQ(t.boxes.Texts().front(),
              "Press F5 to stop recording.\r\nPress F11 to create a new step manually.\r\nDo not press F10\r\n"
              "Press Enter to create a new step (turned on by user).");
    Send({{'k', 13}, {'k', 'Q'}, {'K', 'Q'}, {'K', 13}, {'k', 116}, {'K', 116}});
    EXPECT_EQ(Row(1), (std::vector<std::string>{"-1", "-1", "No Click", "q", "0", "checked"}));
    EXPECT_EQ(t.grid.RowCount(), 2);
}

TEST_F(Recording, AStepIsStampedWithTheTimeSinceThePreviousOne) {
    RecordButton(app);
    t.clock.nowMs += 61500;
    Send({{'K', kF11}});
    t.clock.nowMs += 250;
    Send({{'K', kF11}});
    EXPECT_EQ(t.Column(kColMins), "1 0 0");  // the last row waits for the next action
    EXPECT_EQ(t.Column(kColSecs), "1.50 0.25 0");
}

TEST_F(Recording, FromTheBeginningOffersToSaveTheScriptAndCancelChangesNothing) {
    AddStep("1", "2", "No Click", "old");
    t.WriteFile("Data.dat", "old script");
    const std::pair<BoxAnswer, int> answers[] = {{BoxAnswer::Cancel, 1}, {BoxAnswer::No, 0}};
    for (const auto& [answer, rowsKept] : answers) {
        t.boxes.answers = {answer};
        RecordButton(app);
        EXPECT_EQ(t.boxes.shown.front().text, "New script will be created.  Save current script?");
        EXPECT_EQ(t.grid.RowCount() > 0 && t.grid.Cell(1, kColAdditional) == "old", rowsKept == 1);
        EXPECT_EQ(t.Exists("Data.dat"), rowsKept == 1);
        EXPECT_EQ(t.main.recordCaption == "RECORD", rowsKept == 1);
        t.boxes.shown.clear();
    }
}

TEST_F(Recording, FromTheSelectedStepOverwritesOnwardAndAsksAboutStepsLeftOver) {
    app.settings.recordIntoSelected = true;
    for (const char* keys : {"one", "two", "three", "four"}) AddStep("0", "0", "No Click", keys);
    t.grid.SetSelected(2, true);
    t.boxes.answers = {BoxAnswer::Ok, BoxAnswer::Yes};
    EXPECT_EQ(Record({{'k', 'Z'}, {'K', 'Z'}, {'K', kF11}}),
              (Steps{{"0", "0", "No Click", "one", "0", "checked"}, {"0", "0", "No Click", "z", "0", "checked"}}));
    EXPECT_EQ(t.boxes.Texts()[1],
              "There are 2 steps that are not part of this recording.  They are disabled (unchecked).  Would you "
              "like to remove those steps?");
    EXPECT_EQ(t.ReadFile("Data.dat"), "True|||1||0||0||No Click||one||0||0||0\r\n"
                                      "True|||2||0||0||No Click||z||0||0.00||0\r\n");
}

TEST_F(Recording, TheStopKeyEndsARecordingEvenInsideTheClickWait) {
    RecordButton(app);
    PressKeyAt(kEscape, t.clock.nowMs + 100);
    Send({{'d', 1, 4, 4}, {'u', 1, 4, 4}});
    EXPECT_EQ(t.main.recordCaption, "RECORD");
    const std::vector<std::string> pressOnly{"4", "4", "Left Down", "", "0", "checked"};
    ASSERT_EQ(t.grid.RowCount(), 1);
    EXPECT_EQ(Row(1), pressOnly) << "the click was not completed";
    Send({{'d', 1, 7, 7}, {'m', 9, 9}, {'K', 'A'}});
    EXPECT_EQ(Row(1), pressOnly) << "events still queued change nothing";
}

TEST_F(Recording, EndingRepairsUnbalancedTextsWithoutAsking) {
    Record({{'k', kShift}, {'k', 'A'}, {'K', 'A'}, {'K', kF11}});
    EXPECT_EQ(t.grid.Cell(1, kColAdditional), "%sa$s");
    EXPECT_EQ(t.main.statusTexts.back(),
              "Please re-check the text, as it's possible the keys were not released at the right time.");
}

TEST_F(Recording, TheModeMenuWritesTheOtherEntryAtOnce) {
    t.WriteFile("Settings.ini", "[MAIN]\r\nRecMode=0\r\n");
    for (int choice : {0, -1, 1}) {
        t.main.recordModeChoice = choice;
        RecordOptionsButton(app);
    }
    EXPECT_EQ(t.main.recordModeShown, (std::vector<bool>{false, false, false}));
    EXPECT_TRUE(app.settings.recordIntoSelected);
    EXPECT_EQ(t.ini.Read("MAIN", "RecMode", app.settingsPath), "1");
}

TEST_F(Recording, TheHookLibraryAndItsFailures) {
    t.hooks.loads = false;
    LoadHookLibrary(app);
    EXPECT_FALSE(t.main.IsEnabled(Control::Record));
    EXPECT_EQ(t.hooks.calls.front(), "load " + t.Path("InHook.dll"));
    EXPECT_TRUE(t.boxes.shown.empty());

    // Without "MouseProc" only the keyboard is hooked, silently.
    t.hooks = {};
    t.hooks.missing = {"MouseProc"};
    StartHooks(app);
    EXPECT_EQ(t.hooks.calls, (std::vector<std::string>{"install keys", "init keys 485 2"}));

    // Without "InitMouse" the record command fails and says so in the log.
    t.hooks = {};
    t.hooks.missing = {"InitMouse"};
    RecordButton(app);
    EXPECT_EQ(t.hooks.calls, (std::vector<std::string>{"install mouse"}));
    EXPECT_NE(t.ReadFile("Error.log").find("Can't find DLL entry point InitMouse in InHook.dll"), std::string::npos);
    EXPECT_NE(t.ReadFile("Error.log").find("RecordButton"), std::string::npos);

    t.hooks = {};
    ReleaseHookLibrary(app);
    EXPECT_EQ(t.hooks.calls, (std::vector<std::string>{"remove 1", "remove 2", "free"}));
}

TEST(RunTest, ChecksPressesAgainstReleases) {
    // Text, the user's answer, the text returned, the question's report.
    const std::tuple<std::string, BoxAnswer, std::string, std::string> cases[] = {
        {"%sa$s", BoxAnswer::Yes, "%sa$s", ""},
        {"%sa", BoxAnswer::Yes, "%sa$s", "\r\nSHIFT: Pressed 1| Released 0"},
        {"%sa", BoxAnswer::No, "%sa", "\r\nSHIFT: Pressed 1| Released 0"},
        {"$ca", BoxAnswer::Yes, "$ca%c", "\r\nCTRL: Pressed 0| Released 1"},
        {"%winfoc Probe%s", BoxAnswer::Yes, "%winfoc Probe%s", ""},
        {"%s%a%a", BoxAnswer::Yes, "%s%a%a$a$a$s", "\r\nALT: Pressed 2| Released 0\r\nSHIFT: Pressed 1| Released 0"},
    };
    for (const auto& [text, answer, result, report] : cases) {
        TestApp t;
        t.boxes.answers = {answer};
        EXPECT_EQ(RunTest(t.app, text, false), result) << text;
        std::vector<std::string> asked;
        if (!report.empty()) asked.push_back(report + "\r\nPress Yes to fix (might yield unwanted results!)");
        EXPECT_EQ(t.boxes.Texts(), asked) << text;
    }
}

}  // namespace
