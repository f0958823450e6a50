#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <vector>

#include "core/app.h"
#include "playback/playback_loop.h"
#include "playback/pointer_actions.h"
#include "playback/run_controls.h"
#include "playback_rig.h"

namespace {

constexpr int kEscape = 27;

class Playback : public PlaybackRig {};

TEST_F(Playback, ButtonPairingDecidesWhetherTheRunStarts) {
    struct Case {
        std::vector<const char*> buttons;
        std::vector<std::string> boxes;
        bool runs;
        bool checked = true;
    } cases[] = {
        {{"Left Down", "No Click", "Left Up"}, {}, true},
        {{"Left Up", "Left Click"}, {"Pressing Left Up before Left Down does not do anything."}, true},
        {{"Right Up", "Left Up"},
         {"Pressing Right Up before Right Down does not do anything.",
          "Pressing Left Up before Left Down does not do anything."},
         true},
        {{"Left Down"}, {"Left Down is not followed by Left Up."}, false},
        {{"Left Down", "Right Down"}, {"Right Down is not followed by Right Up."}, false},
        // Unchecked rows take part in the check.
        {{"Right Down"}, {"Right Down is not followed by Right Up."}, false, false},
        {{"Left Up", "Left Down"},
         {"Pressing Left Up before Left Down does not do anything.", "Left Down is not followed by Left Up."},
         false},
    };
    for (const Case& c : cases) {
        t.grid.Clear();
        t.boxes.shown.clear();
        t.input.events.clear();
        t.main.panels[1].clear();
        std::filesystem::remove(t.NativePath("Data.dat"));
        for (const char* button : c.buttons) AddStep("10", "20", button, "", "0", "0", "0", c.checked);
        StartButton(app);
        EXPECT_EQ(t.boxes.Texts(), c.boxes) << c.buttons.front();
        EXPECT_EQ(!MouseEvents().empty(), c.runs) << c.buttons.front();
        EXPECT_EQ(t.Exists("Data.dat"), c.runs) << c.buttons.front();
        if (!c.runs) {
            EXPECT_EQ(t.boxes.shown.back().style, BoxStyle::Error);
            EXPECT_EQ(t.main.panels[1], c.boxes.back());
        }
        EXPECT_TRUE(Idle());
    }
}

TEST_F(Playback, AnEmptyGridDoesNothing) {
    StartButton(app);
    EXPECT_FALSE(t.Exists("Data.dat"));
    EXPECT_TRUE(t.boxes.shown.empty());
    EXPECT_FALSE(app.stopRequested);
}

TEST_F(Playback, LocksTheWindowWhileRunningAndUnlocksItAfterwards) {
    AddStep("10", "20", "No Click", "", "0", "5");
    app.settings.startMin = 1;
    app.settings.mouseSaver = 1;
    t.grid.SetSelected(1, true);
    bool checkedMidRun = false;
    At(2000, [&] {
        checkedMidRun = true;
        for (Control control : kLockedByRun) EXPECT_FALSE(t.main.IsEnabled(control));
        EXPECT_TRUE(t.main.IsEnabled(Control::Stop));
        EXPECT_TRUE(t.main.IsEnabled(Control::Repeat));
        EXPECT_TRUE(t.main.TimerEnabled(Timer::Stop));
        EXPECT_FALSE(t.main.TimerEnabled(Timer::ShiftNext));
        EXPECT_TRUE(t.main.TimerEnabled(Timer::MouseSaver));
        EXPECT_EQ(t.main.state, WindowState::Minimised);
        EXPECT_FALSE(t.grid.Selected(1));
        EXPECT_EQ(t.clock.fineTiming, 1);
    });
    StartButton(app);
    EXPECT_TRUE(checkedMidRun);
    EXPECT_TRUE(t.Exists("Data.dat"));
    EXPECT_TRUE(Idle());
    EXPECT_TRUE(app.stopRequested);
    EXPECT_EQ(t.main.state, WindowState::Normal);
}

TEST_F(Playback, ColoursPassedRowsAndCountsCheckedSteps) {
    AddStep("10", "20", "Left Click", "", "0", "1");
    AddStep("10", "20", "Left Click", "", "0", "1", "0", false);
    AddStep("10", "20", "Left Click", "", "0", "1", "2");
    std::vector<std::uint32_t> coloursDuringLastStep;
    At(1500, [&] {
        for (const StepRow& row : t.grid.Rows()) coloursDuringLastStep.push_back(row.colour);
    });
    StartButton(app);
    EXPECT_EQ(coloursDuringLastStep, (std::vector<std::uint32_t>(3, kPlayedRowColour)));
    for (const StepRow& row : t.grid.Rows()) EXPECT_EQ(row.colour, kButtonTextColour);
    EXPECT_EQ(t.main.panels[5], "2");
    EXPECT_EQ(MouseEvents().size(), 4u);
}

TEST_F(Playback, RepeatTwoPerformsThreeTimesCountingDownAndRestoresTheCell) {
    AddStep("10", "20", "Left Click", "ab", "0", "1", "2");
    std::vector<std::string> repeatAtClicks;
    t.input.onEvent = [&](const InputEvent& event) {
        if (event.kind == InputEvent::Mouse) repeatAtClicks.push_back(t.grid.Cell(1, kColRepeat));
    };
    StartButton(app);
    EXPECT_EQ(repeatAtClicks, (std::vector<std::string>{"2", "1", "0"}));
    EXPECT_EQ(t.grid.Cell(1, kColRepeat), "2");
    EXPECT_EQ(KeyEvents().size(), 12u);
    EXPECT_EQ(t.clock.nowMs, 3 * 1100);
    // The pointer is placed once per step, not once per performance.
    EXPECT_EQ(EventsOf(InputEvent::SetPos).size(), 1u);
}

TEST_F(Playback, RandomCellsAreEvaluatedAndTheExpressionKept) {
    app.drawRandom = [] { return 0.5; };
    AddStep("RND(100,100,0)", "rnd(0,400,0)", "Left Click", "", "0", "RND(0,1,2)", "RND(1,0,0)");
    StartButton(app);
    EXPECT_EQ(EventsOf(InputEvent::SetPos).front(), (InputEvent{InputEvent::SetPos, 0, 0, 150, 200}));
    EXPECT_EQ(MouseEvents().size(), 2u);
    EXPECT_EQ(t.clock.waitedSeconds, (std::vector<double>{0.5, 0.5}));
    EXPECT_EQ(t.grid.Cell(1, kColRepeat), "RND(1,0,0)");
}

TEST_F(Playback, MinusOneKeepsThatCoordinateOfThePointer) {
    t.input.cursor = {640, 480};
    AddStep("-1", "300", "No Click", "");
    AddStep("25", "-1", "No Click", "");
    StartButton(app);
    EXPECT_EQ(EventsOf(InputEvent::SetPos),
              (std::vector<InputEvent>{{InputEvent::SetPos, 0, 0, 640, 300}, {InputEvent::SetPos, 0, 0, 25, 300}}));
}

TEST_F(Playback, WaitsMinutesTimesSixtyPlusSeconds) {
    AddStep("10", "20", "No Click", "", "1", "30");
    AddStep("10", "20", "No Click", "", "-1", "0");
    StartButton(app);
    EXPECT_EQ(t.clock.nowMs, 90000);
}

TEST_F(Playback, KeystrokeTextIsTrimmedInTheGridAndTypedWithAPendingPrefixCarriedAcrossSteps) {
    AddStep("10", "20", "No Click", "  ab  ");
    AddStep("10", "20", "No Click", "   ");
    AddStep("10", "20", "No Click", "0%");
    AddStep("10", "20", "No Click", ".");
    StartButton(app);
    EXPECT_EQ(t.Column(kColAdditional), "ab  0% .");
    // The Down Arrow that "%." left pressed is let go of when the run ends.
    EXPECT_EQ(KeyEvents(), (std::vector<InputEvent>{Down('A'), Up('A'), Down('B'), Up('B'), Down('0'), Up('0'),
                                                    Down(40), Up(40)}));
    EXPECT_EQ(t.clock.waitedSeconds, (std::vector<double>{0.1, 0.1, 0.1}));
}

TEST_F(Playback, WindowCommandsGetTheCellsAsEntered) {
    t.windows.titles[8] = "Calculator";
    t.windows.rects[8] = {100, 50, 400, 350};
    AddStep("-1", "-1", "Left Click", "%winmov Calculator; 300,200 ");
    StartButton(app);
    EXPECT_EQ(t.windows.calls, std::vector<std::string>{"setpos 8 1 100,50 300x200 0"});
    EXPECT_TRUE(KeyEvents().empty());
    EXPECT_EQ(t.grid.Cell(1, kColAdditional), "%winmov Calculator; 300,200 ");
}

TEST_F(Playback, ANonNumericCellEndsTheRunWithALogLine) {
    AddStep("10", "20", "Left Click", "", "0", "1", "RND(1,0,0)");
    AddStep("10", "20", "Left Click", "", "abc", "0", "5");
    AddStep("10", "20", "Left Click", "", "0", "0");
    StartButton(app);
    EXPECT_NE(t.ReadFile("Error.log").find("Type mismatch 13 StartButton"), std::string::npos);
    EXPECT_EQ(MouseEvents().size(), 3u);
    EXPECT_EQ(t.Column(kColRepeat), "RND(1,0,0) 5 0");
    EXPECT_TRUE(Idle());
}

TEST_F(Playback, StopKeyEndsATenMinuteWait) {
    AddStep("10", "20", "Left Click", "", "10", "0");
    AddStep("10", "20", "Left Click", "", "0", "0");
    PressKeyAt(kEscape, 5000);
    StartButton(app);
    EXPECT_GE(t.clock.nowMs, 5000);
    EXPECT_LE(t.clock.nowMs, 5020);
    EXPECT_EQ(MouseEvents().size(), 1u);
    EXPECT_TRUE(Idle());
}

TEST_F(Playback, StopKeyEndsAStepRepeatedWithoutAnyWait) {
    t.clock.yieldCostMs = 1;
    AddStep("10", "20", "Left Click", "", "0", "0", "1000000");
    PressKeyAt(kEscape, 100);
    StartButton(app);
    EXPECT_LT(MouseEvents().size(), 200u);
    EXPECT_TRUE(Idle());
}

TEST_F(Playback, RepeatToggleReplaysUntilTheStopKey) {
    app.settings.repeatState = "1";
    AddStep("10", "20", "Left Click", "", "0", "1");
    PressKeyAt(kEscape, 3500);
    StartButton(app);
    EXPECT_EQ(MouseEvents().size(), 4u);
    EXPECT_TRUE(app.stopRequested);
    EXPECT_TRUE(Idle());
    for (const StepRow& row : t.grid.Rows()) EXPECT_EQ(row.colour, kButtonTextColour);
}

TEST_F(Playback, SwitchingTheToggleOffMakesTheCurrentPassTheLast) {
    app.settings.repeatState = "1";
    AddStep("10", "20", "Left Click", "", "0", "1");
    At(1500, [&] { app.settings.repeatState = "0"; });
    StartButton(app);
    EXPECT_EQ(MouseEvents().size(), 2u);
    EXPECT_EQ(t.clock.nowMs, 2000);
}

TEST_F(Playback, NoCheckedRowsWithRepeatOnStillListensForTheStopKey) {
    app.settings.repeatState = "1";
    t.clock.yieldCostMs = 1;
    AddStep("10", "20", "Left Click", "", "0", "1", "0", false);
    PressKeyAt(kEscape, 100);
    StartButton(app);
    EXPECT_TRUE(t.input.events.empty());
    EXPECT_LE(t.clock.nowMs, 120);
    EXPECT_TRUE(Idle());
}

TEST_F(Playback, AnAutomaticStartSwitchesAutoStartOffAfterTheRun) {
    t.WriteFile("Settings.ini", "[MAIN]\r\nAutoStart=1\r\nStopKey=27\r\n");
    app.settings.autoStart = 1;
    app.autoStarted = true;
    AddStep("10", "20", "No Click", "");
    StartButton(app);
    EXPECT_EQ(t.ini.Read("MAIN", "AutoStart", app.settingsPath), "0");
    EXPECT_EQ(app.settings.autoStart, 0);
    EXPECT_FALSE(app.autoStarted);
}

// A click carries its position: the flags of its action with move,
// absolute and virtual desktop (0xC001), and the position on the 0..65535 scale.
TEST(ClickActions, SendTheirMouseEventFlagsAtThePosition) {
    const std::pair<const char*, std::vector<std::uint32_t>> cases[] = {
        {"No Click", {}},      {"Left Click", {6}},      {"Left DblClick", {6, 6}}, {"Left Down", {2}},
        {"Left Up", {4}},      {"Right Click", {24}},    {"Right DblClick", {24, 24}}, {"Right Down", {8}},
        {"Right Up", {16}},    {"left click", {}},       {"", {}},
    };
    for (const auto& [action, flags] : cases) {
        TestApp t;
        SendClickAction(t.app, action, {640, 256});
        std::vector<std::uint32_t> sent;
        for (const InputEvent& event : t.input.events) {
            EXPECT_EQ(event.code & 0xFFFFFFE1u, 0xC001u);
            EXPECT_EQ(std::pair(event.x, event.y), std::pair(32768, 16384));
            sent.push_back(event.code & 0x1E);
        }
        EXPECT_EQ(sent, flags) << action;
    }
}

// The system truncates the scaled coordinate, so every pixel must come back
// as itself; a position off the desktop clicks at its nearest edge.
TEST(ClickActions, EveryPixelOfTheDesktopComesBackExactly) {
    for (auto [width, height] : {std::pair(1280, 1024), std::pair(1366, 768)}) {
        TestApp t;
        t.input.screenWidth = width;
        t.input.screenHeight = height;
        auto landed = [&](int x, int y) {
            t.input.events.clear();
            SendClickAction(t.app, "Left Down", {x, y});
            const InputEvent& click = t.input.events.at(0);
            return std::pair(static_cast<int>(std::int64_t{click.x} * width / 65536),
                             static_cast<int>(std::int64_t{click.y} * height / 65536));
        };
        for (int x = 0; x < width; ++x) ASSERT_EQ(landed(x, 0).first, x) << width;
        for (int y = 0; y < height; ++y) ASSERT_EQ(landed(0, y).second, y) << height;
        EXPECT_EQ(landed(-5, height + 100), std::pair(0, height - 1));
    }
}

TEST_F(Playback, EveryClickOfAStepLandsWhereTheStepPutThePointer) {
    t.input.cursor = {640, 480};
    AddStep("-1", "300", "Left Click", "", "0", "1", "2");
    std::vector<Point> clicks;
    t.input.onEvent = [&](const InputEvent& event) {
        if (event.kind != InputEvent::Mouse) return;
        clicks.push_back(t.input.cursor);
        t.input.cursor = {5, 5};  // moved away, or reported late
    };
    StartButton(app);
    EXPECT_EQ(clicks, std::vector<Point>(3, Point{640, 300}));
}

// Keys and buttons the run pressed and never released are let go of when it
// ends, however it ends, the last pressed first; nothing else is sent.
TEST_F(Playback, TheEndOfARunReleasesWhatItLeftPressed) {
    constexpr std::uint32_t kLeftDown = 2, kLeftUp = 4, kRightDown = 8, kRightUp = 16;
    auto button = [](std::uint32_t flags) { return InputEvent{InputEvent::Mouse, flags, 0}; };
    struct Case {
        std::string end;
        std::vector<std::vector<std::string>> steps;  // X, Y, Button, Additional, Mins, Secs; "-" unchecked
        std::vector<InputEvent> sent;                 // keys and buttons, positions left out
    } cases[] = {
        {"finished", {{"10", "20", "Left Down", "%c%s"}, {"-", "10", "20", "Left Up", ""}},
         {button(kLeftDown), Down(17), Down(16), Up(16), Up(17), button(kLeftUp)}},
        {"stop key", {{"10", "20", "Right Down", "%a", "10"}, {"10", "20", "Right Up", ""}},
         {button(kRightDown), Down(18), Up(18), button(kRightUp)}},
        {"Stop button", {{"10", "20", "Left Down", "%w%c$c", "10"}, {"10", "20", "Left Up", ""}},
         {button(kLeftDown), Down(91), Down(17), Up(17), Up(91), button(kLeftUp)}},
        {"error", {{"10", "20", "Left Down", "%c"}, {"10", "20", "No Click", "%c", "abc"}, {"-", "1", "1", "Left Up", ""}},
         {button(kLeftDown), Down(17), Down(17), Up(17), button(kLeftUp)}},
        {"nothing held", {{"10", "20", "Left Click", "%ca$c%l"}, {"10", "20", "Right DblClick", "$l"}},
         {button(kLeftDown | kLeftUp), Down(17), Down('A'), Up('A'), Up(17), Down(20), Up(20),
          button(kRightDown | kRightUp), button(kRightDown | kRightUp), Up(20), Up(20)}},
    };
    for (const Case& c : cases) {
        t.grid.Clear();
        t.input.events.clear();
        t.input.pressedKeys.clear();
        for (std::vector<std::string> cells : c.steps) {
            bool checked = cells[0] != "-";
            if (!checked) cells.erase(cells.begin());
            cells.resize(6, "0");
            AddStep(cells[0], cells[1], cells[2], cells[3], cells[4], cells[5], "0", checked);
        }
        double inTheWait = t.clock.nowMs + 5000;
        if (c.end == "stop key") PressKeyAt(kEscape, inTheWait);
        if (c.end == "Stop button") At(inTheWait, [&] { StopButton(app); });
        StartButton(app);
        std::vector<InputEvent> sent;
        for (const InputEvent& event : t.input.events) {
            if (event.kind == InputEvent::Key) sent.push_back(event);
            if (event.kind == InputEvent::Mouse) sent.push_back(button(event.code & 0x1E));
        }
        EXPECT_EQ(sent, c.sent) << c.end;
        EXPECT_TRUE(app.heldByRun.empty()) << c.end;
        EXPECT_TRUE(Idle()) << c.end;
    }
}

class SmoothMove : public PlaybackRig {};

TEST_F(SmoothMove, GlidesTwoPixelsPerAxisAndEndsExactlyOnTarget) {
    ASSERT_EQ(t.input.cursor, (Point{100, 100}));
    SScroll(app, 400, 250);
    std::vector<InputEvent> moves = MouseEvents();
    ASSERT_FALSE(moves.empty());
    for (const InputEvent& move : moves) EXPECT_EQ(move.code, 0xFFFF8001u);
    // 65535 / 1280 and 65535 / 1024 rounded: one pixel on each axis.
    EXPECT_EQ(moves.front(), (InputEvent{InputEvent::Mouse, 0xFFFF8001u, 0, 5120 + 2 * 51, 6400 + 2 * 64}));
    EXPECT_EQ(moves.back(), (InputEvent{InputEvent::Mouse, 0xFFFF8001u, 0, 20480, 16000}));
    EXPECT_EQ(t.input.cursor, (Point{400, 250}));
    // Diagonal until the vertical distance is covered, then straight.
    InputEvent halfway = moves[74];
    EXPECT_EQ(halfway.y, moves.back().y);
    EXPECT_LT(halfway.x, moves.back().x);
}

TEST_F(SmoothMove, YieldsBeforeAndAfterEveryMove) {
    t.clock.yieldCostMs = 1;
    SScroll(app, 110, 100);
    EXPECT_EQ(t.clock.nowMs, 2.0 * MouseEvents().size());
}

TEST_F(SmoothMove, APointerReportedLateStillGlidesAllTheWay) {
    // Every fifth move reaches the pointer only after the next reading.
    int moves = 0;
    Point before = t.input.cursor;
    t.input.onEvent = [&](const InputEvent& event) {
        if (event.kind != InputEvent::Mouse) return;
        if (++moves % 5 == 0) t.input.cursor = before;
        before = t.input.cursor;
    };
    SScroll(app, 400, 250);
    EXPECT_EQ(t.input.cursor, (Point{400, 250}));
    EXPECT_GT(moves, 150);
}

TEST_F(SmoothMove, ATargetOffTheScreenEndsAtTheEdge) {
    SScroll(app, 5000, 5000);
    EXPECT_EQ(t.input.cursor, (Point{1279, 1023}));
}

TEST_F(SmoothMove, NeverPassesItsTargetAndEndsWhereThePointerStops) {
    // Beyond the screen's edge on one axis and an odd distance on the other
    // once made the pointer swing about its target for ever.
    t.input.cursor = {640, 500};
    std::vector<int> xs;
    t.input.onEvent = [&](const InputEvent& event) {
        if (event.kind != InputEvent::Mouse) return;
        xs.push_back(t.input.cursor.x);
        if (xs.size() > 100000) throw std::runtime_error("the move never ends");
    };
    SScroll(app, 1, 3000);
    ASSERT_LT(xs.size(), 1000u);
    for (int x : xs) EXPECT_GE(x, 1);
    EXPECT_EQ(t.input.cursor, (Point{1, 1023}));
}

TEST_F(SmoothMove, EndsAtTheStopRequest) {
    int moves = 0;
    t.input.onEvent = [&](const InputEvent& event) {
        if (event.kind == InputEvent::Mouse && ++moves == 10) app.stopRequested = true;
    };
    SScroll(app, 1000, 900);
    EXPECT_EQ(moves, 10);
}

TEST_F(SmoothMove, PlaybackSwitchesThePointerGuardOffDuringTheMove) {
    app.settings.smoothPointer = 1;
    app.settings.mouseSaver = 1;
    AddStep("300", "100", "No Click", "", "0", "1");
    std::vector<bool> guardDuringMoves;
    t.input.onEvent = [&](const InputEvent& event) {
        if (event.kind == InputEvent::Mouse) guardDuringMoves.push_back(t.main.TimerEnabled(Timer::MouseSaver));
        if (event.kind == InputEvent::SetPos) {
            EXPECT_TRUE(t.main.TimerEnabled(Timer::MouseSaver));
        }
    };
    StartButton(app);
    ASSERT_GT(guardDuringMoves.size(), 90u);
    for (bool on : guardDuringMoves) EXPECT_FALSE(on);
    EXPECT_EQ(EventsOf(InputEvent::SetPos).back(), (InputEvent{InputEvent::SetPos, 0, 0, 300, 100}));
    EXPECT_EQ(app.guardX, 300);
}

}  // namespace
