#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

#include "core/app.h"
#include "playback/waits.h"
#include "playback_rig.h"

namespace {

class Waits : public PlaybackRig {
protected:
    Waits() { app.settings.showCount = 1; }
};

TEST_F(Waits, ShortPauseShowsLessThanOneSecond) {
    Pause(app, 0.5);
    EXPECT_EQ(t.clock.waitedSeconds, std::vector<double>{0.5});
    EXPECT_EQ(t.clock.nowMs, 500);
    EXPECT_EQ(t.main.statusTexts, std::vector<std::string>{"Remaining until next step: <1 second"});
}

TEST_F(Waits, AWaitOfZeroOrBelowIsNoWaitHoweverFarBelowAndShowsNothing) {
    for (double seconds : {0.0, -0.5, -1e300 * 60, -HUGE_VAL, std::nan("")}) Pause(app, seconds);
    EXPECT_TRUE(t.clock.waitedSeconds.empty());
    EXPECT_TRUE(t.main.statusTexts.empty());
    EXPECT_EQ(t.clock.nowMs, 0);
}

TEST_F(Waits, CountdownOffShowsNothing) {
    app.settings.showCount = 0;
    Pause(app, 0.5);
    Pause(app, 3);
    EXPECT_TRUE(t.main.statusTexts.empty());
    EXPECT_EQ(t.clock.nowMs, 3500);
}

TEST_F(Waits, LongPauseCountsDownInWholeSeconds) {
    Pause(app, 65);
    std::vector<std::string> texts = t.main.statusTexts;
    ASSERT_EQ(texts.size(), 65u);
    EXPECT_EQ(texts[0], "Remaining until next step: 00:01:05");
    EXPECT_EQ(texts[1], "Remaining until next step: 00:01:04");
    EXPECT_EQ(texts[64], "Remaining until next step: 00:00:01");
    EXPECT_EQ(t.clock.waitedSeconds, std::vector<double>(65, 1.0));
    EXPECT_EQ(t.clock.nowMs, 65000);
}

TEST_F(Waits, LongPauseEndsOnAWholeWallClockSecond) {
    t.clock.originSeconds = 1000000.75;
    Pause(app, 2.4);
    EXPECT_EQ(app.waitEndTime, 1000002);
    EXPECT_EQ(t.clock.nowMs, 2000);
}

TEST(RemainingText, FormatsAsTimeOfDay) {
    const std::pair<long, const char*> cases[] = {
        {0, "00:00:00"}, {65, "00:01:05"}, {3661, "01:01:01"}, {86399, "23:59:59"}, {90000, "01:00:00"}};
    for (const auto& [seconds, text] : cases) EXPECT_EQ(RemainingText(seconds), text) << seconds;
}

TEST_F(Waits, WindowsNinetyFivePollsTheTickCountInstead) {
    app.osName = kWindows95Name;
    t.clock.yieldCostMs = 10;
    Pause(app, 0.5);
    EXPECT_TRUE(t.clock.waitedSeconds.empty());
    EXPECT_EQ(t.clock.nowMs, 500);
    // The end time counts from the whole second the wait began in.
    Pause(app, 3);
    EXPECT_TRUE(t.clock.waitedSeconds.empty());
    EXPECT_EQ(t.clock.nowMs, 3000);
    EXPECT_EQ(t.main.statusTexts.front(), "Remaining until next step: <1 second");
    EXPECT_EQ(t.main.statusTexts.back(), "Remaining until next step: 00:00:01");
    // The polling wait still ends on the stop key.
    t.main.SetTimer(Timer::Stop, true);
    PressKeyAt(27, 4500);
    Pause(app, 600);
    EXPECT_LE(t.clock.nowMs, 4530);
}

class PointerGuard : public Waits {
protected:
    PointerGuard() {
        app.settings.mouseSaver = 1;
        t.main.SetTimer(Timer::MouseSaver, true);
        app.guardX = 100;
        app.guardY = 100;
    }
};

TEST_F(PointerGuard, DiagonalMovementProlongsTheWaitByASecondPerTick) {
    At(3000, [this] { t.input.cursor = {150, 150}; });
    Pause(app, 10);
    EXPECT_EQ(app.waitEndTime, t.clock.originSeconds + 11);
    EXPECT_EQ(t.clock.nowMs, 11000);
}

TEST_F(PointerGuard, MovingAlongOneAxisDoesNotCount) {
    At(3000, [this] { t.input.cursor = {150, 100}; });
    At(5000, [this] { t.input.cursor = {150, 400}; });
    Pause(app, 10);
    EXPECT_EQ(t.clock.nowMs, 10000);
    EXPECT_EQ(app.guardX, 150);
    EXPECT_EQ(app.guardY, 400);
}

TEST_F(PointerGuard, TakesAnUnknownPositionFromThePointerOnlyWhenTheSettingIsOne) {
    t.input.cursor = {700, 800};
    app.guardX = app.guardY = 0;
    app.settings.mouseSaver = 2;
    OnMouseSaverTimer(app);
    EXPECT_EQ(app.guardX, 0);
    app.settings.mouseSaver = 1;
    OnMouseSaverTimer(app);
    EXPECT_EQ(app.guardX, 700);
    EXPECT_EQ(app.guardY, 800);
    EXPECT_EQ(t.clock.nowMs, 0);
}

}  // namespace
