#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/stop_key_panel.h"
#include "core/app.h"
#include "core/vocabulary.h"
#include "playback/hot_keys.h"
#include "playback/playback_loop.h"
#include "playback/run_controls.h"
#include "playback/stop_key.h"
#include "playback_rig.h"

namespace {

constexpr int kEscape = 27;
constexpr int kF6 = 117;

class StopKeys : public PlaybackRig {};

TEST_F(StopKeys, StopButtonRestoresTheIdleWindowInOrder) {
    LockForRun(app);
    t.main.SetTimer(Timer::MouseSaver, true);
    AddStep("1", "2", "No Click", "");
    t.grid.SetSelected(1, true);
    StopButton(app);
    EXPECT_TRUE(app.stopRequested);
    EXPECT_TRUE(Idle());
    EXPECT_FALSE(t.grid.Selected(1));
}

TEST_F(StopKeys, TheStopKeyClicksRecordWhileRecordingAndStopOtherwise) {
    int recordClicks = 0;
    app.clickRecord = [&] { ++recordClicks; };
    t.input.pressedKeys = {kEscape};
    t.main.recordCaption = "ESCAPE TO STOP";
    OnStopTimer(app);
    EXPECT_EQ(recordClicks, 1);
    EXPECT_FALSE(app.stopRequested);
    t.main.recordCaption = "RECORD";
    OnStopTimer(app);
    EXPECT_EQ(recordClicks, 1);
    EXPECT_TRUE(app.stopRequested);
}

TEST_F(StopKeys, AKeyReleasedBeforeThePollIsNoPress) {
    t.input.releasedSinceLastCall = {kEscape, kVkNextStep, kVkCopyPointer};
    AddStep("1", "2", "No Click", "");
    t.grid.SetSelected(1, true);
    OnStopTimer(app);
    OnShiftNextTimer(app);
    OnHotkeyTimer(app);
    EXPECT_FALSE(app.stopRequested);
    EXPECT_EQ(t.grid.RowCount(), 1);
    EXPECT_EQ(t.grid.Cell(1, kColX), "1");
}

TEST_F(StopKeys, ChangingTheStopKeyWritesTheCodeAndClosesThePanel) {
    OpenStopKeyPanel(app);
    EXPECT_TRUE(t.main.FrameVisible(Frame::StopKey));
    EXPECT_FALSE(t.main.FrameVisible(Frame::Main));
    ChangeStopKey(app, "F5");
    EXPECT_EQ(app.stopKeyCode, 116);
    EXPECT_EQ(t.main.panels[4], "F5");
    EXPECT_EQ(t.ini.Read("MAIN", "StopKey", app.settingsPath), "116");
    EXPECT_EQ(t.main.panels[1], "StopKey successfully changed to F5");
    EXPECT_TRUE(t.main.FrameVisible(Frame::Main));
    EXPECT_FALSE(t.main.FrameVisible(Frame::StopKey));
}

TEST_F(StopKeys, ReturnAndEscapeInTheListAcceptAndClose) {
    OpenStopKeyPanel(app);
    EXPECT_FALSE(OnStopKeyListKey(app, 'A', "F2"));
    EXPECT_TRUE(t.main.FrameVisible(Frame::StopKey));
    EXPECT_TRUE(OnStopKeyListKey(app, 27, "F2"));
    EXPECT_EQ(app.stopKeyCode, 27);
    EXPECT_FALSE(t.main.FrameVisible(Frame::StopKey));
    OpenStopKeyPanel(app);
    EXPECT_TRUE(OnStopKeyListKey(app, 13, "F2"));
    EXPECT_EQ(app.stopKeyCode, 113);
    EXPECT_TRUE(t.main.FrameVisible(Frame::Main));
}

TEST_F(StopKeys, FSixMakesAStopKeyThatNothingPresses) {
    ChangeStopKey(app, "F6");
    EXPECT_EQ(app.stopKeyCode, 0);
    EXPECT_EQ(t.ini.Read("MAIN", "StopKey", app.settingsPath), "0");
    EXPECT_EQ(t.main.panels[1], "StopKey successfully changed to ");
    EXPECT_EQ(t.main.panels[4], "");
    AddStep("10", "20", "Left Click", "", "0", "2");
    AddStep("10", "20", "Left Click", "", "0", "0");
    PressKeyAt(kF6, 500);
    PressKeyAt(kEscape, 500);
    StartButton(app);
    EXPECT_EQ(MouseEvents().size(), 2u);
    EXPECT_EQ(t.clock.nowMs, 2000);
}

TEST(Vocabulary, EveryOfferedChoiceExceptF6RoundTrips) {
    for (const std::string& name : StopKeyChoices()) {
        std::string back = StopKeyName(StopKeyCodeOf(name));
        EXPECT_EQ(back, name == "F6" ? "" : name) << name;
    }
}

class HotKeys : public PlaybackRig {
protected:
    HotKeys() {
        AddStep("1", "2", "No Click", "", "0", "0", "0", false);
        AddStep("3", "4", "No Click", "", "0", "0", "0", false);
        AddStep("5", "6", "No Click", "", "0", "0", "0", false);
        t.input.cursor = {321, 654};
    }
};

TEST_F(HotKeys, FTwelveCopiesThePointerIntoEverySelectedRow) {
    t.grid.SetSelected(1, true);
    t.grid.SetSelected(3, true);
    t.grid.SetMark(3, "NEW");
    PressKeyAt(123, 0, 150);
    t.clock.Wait(0.2, app.stopRequested);
    EXPECT_EQ(t.Column(kColX), "321 3 321");
    EXPECT_EQ(t.Column(kColY), "654 4 654");
    EXPECT_EQ(t.Flags(&StepGrid::Checked), "101");
    EXPECT_EQ(t.grid.Mark(3), "");
}

TEST_F(HotKeys, HotKeysSleepWhileRecording) {
    t.main.recordCaption = "ESCAPE TO STOP";
    t.grid.SetSelected(1, true);
    t.main.panels[2] = "9";
    t.input.pressedKeys = {123, 121};
    OnHotkeyTimer(app);
    EXPECT_EQ(t.grid.Cell(1, kColX), "1");
    EXPECT_TRUE(t.boxes.shown.empty());
}

TEST_F(HotKeys, FTwelveDuringARunChangesNothing) {
    for (int row = 1; row <= t.grid.RowCount(); ++row) t.grid.SetSelected(row, true);
    t.grid.SetChecked(1, true);
    t.grid.SetCell(1, kColSecs, "1");
    PressKeyAt(123, 200);
    StartButton(app);
    EXPECT_EQ(t.grid.Cell(1, kColX), "1");
    EXPECT_FALSE(t.grid.Checked(2));
}

TEST_F(HotKeys, FTenPausesWithAPlainBox) {
    t.grid.SetChecked(1, true);
    t.grid.SetCell(1, kColSecs, "1");
    PressKeyAt(121, 300, 350);
    // The hot-key timer ticks on inside the box while F10 is still held; the
    // user reads the box for five seconds before pressing OK.
    t.boxes.onShow = [&](const ScriptedBoxes::Shown&) {
        if (t.boxes.shown.size() == 1) OnHotkeyTimer(app);
        t.clock.Sleep(5000);
    };
    StartButton(app);
    EXPECT_EQ(t.boxes.shown, (ShownBoxes{{"Paused. Press OK to resume.", "PAUSED", BoxStyle::Plain}}));
    EXPECT_GE(t.clock.nowMs, 5300);
}

TEST_F(HotKeys, FElevenMovesASingleSelectionOnAndIgnoresNoneOrSeveral) {
    t.input.pressedKeys = {122};
    OnShiftNextTimer(app);
    t.grid.SetSelected(1, true);
    t.grid.SetSelected(3, true);
    OnShiftNextTimer(app);
    EXPECT_EQ(t.Flags(&StepGrid::Selected), "101");
    t.grid.SetSelected(3, false);
    OnShiftNextTimer(app);
    EXPECT_EQ(t.Flags(&StepGrid::Selected), "010");
    OnShiftNextTimer(app);
    OnShiftNextTimer(app);
    EXPECT_EQ(t.Flags(&StepGrid::Selected), "0001");
    EXPECT_EQ(t.grid.Mark(4), "NEW");
}

}  // namespace
