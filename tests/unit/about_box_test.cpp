#include <gtest/gtest.h>

#include "app/about_box.h"
#include "app/toolbar_commands.h"
#include "fakes/test_app.h"
#include "version.h"

namespace {

TEST(AboutBox, SlidePositionsStepTowardsTheTargetAndEndOnIt) {
    EXPECT_EQ(SlidePositions(-600, 0, 200), (std::vector<double>{-600, -400, -200, 0}));
    EXPECT_EQ(SlidePositions(-500, 100, 200), (std::vector<double>{-500, -300, -100, 100}));
    EXPECT_EQ(SlidePositions(100, -500, -200), (std::vector<double>{100, -100, -300, -500}));
    EXPECT_EQ(SlidePositions(50, 50, 200), (std::vector<double>{50}));
    // A frame taller than the window starts below its target.
    EXPECT_EQ(SlidePositions(-100, -300, 200), (std::vector<double>{-300}));
}

class AboutBoxTest : public ::testing::Test {
protected:
    AboutBoxTest() {
        // A timer that notes each new place of the frame when messages run.
        t.clock.yieldCostMs = 10;
        t.main.SetTimerInterval(Timer::CursorPos, 10);
        t.main.SetTimer(Timer::CursorPos, true);
        t.main.onTimer = [this](Timer) {
            if (topsSeenByTimer.empty() || topsSeenByTimer.back() != t.about.top) topsSeenByTimer.push_back(t.about.top);
        };
    }
    TestApp t;
    std::vector<double> topsSeenByTimer;
};

TEST_F(AboutBoxTest, SlidesInOnlyOnceAndOutAgainYieldingAfterEveryStep) {
    ToolbarClick(t.app, "about");
    ToolbarClick(t.app, "about");
    std::vector<double> slideIn;
    for (double top = -1000; top <= 1000; top += 200) slideIn.push_back(top);
    EXPECT_EQ(t.about.tops, slideIn);
    EXPECT_EQ(topsSeenByTimer, slideIn);  // the window ran its messages at every step
    EXPECT_EQ(t.about.left, 1000);
    EXPECT_TRUE(t.about.visible);
    EXPECT_EQ(std::pair(t.about.title, t.about.build),
              std::pair(t.app.appTitle, "Build " + std::to_string(KW_BUILD_NUMBER)));
    EXPECT_FALSE(t.main.IsEnabled(Control::ToolAbout));

    t.about.tops.clear();
    topsSeenByTimer.clear();
    HideAbout(t.app);
    const std::vector<double> slideOut(slideIn.rbegin(), slideIn.rend());
    EXPECT_EQ(t.about.tops, slideOut);
    EXPECT_EQ(topsSeenByTimer, slideOut);
    EXPECT_FALSE(t.about.visible);
    EXPECT_TRUE(t.main.IsEnabled(Control::ToolAbout));
}

TEST_F(AboutBoxTest, HidingDuringTheSlideInStopsIt) {
    bool hidden = false;
    t.main.onTimer = [&](Timer) {
        if (t.about.top == -600 && !hidden) {
            hidden = true;
            HideAbout(t.app);
        }
    };
    ToolbarClick(t.app, "about");
    EXPECT_FALSE(t.about.visible);
    EXPECT_EQ(t.about.tops.back(), -1000);
    EXPECT_TRUE(t.main.IsEnabled(Control::ToolAbout));
}

TEST_F(AboutBoxTest, LinksOpenThroughTheShellAndHideTheBox) {
    const std::pair<AboutLink, const char*> cases[] = {{AboutLink::Mail, "mailto:support@klickwerk.example"},
                                                       {AboutLink::Web, "https://klickwerk.example/"}};
    for (const auto& [link, target] : cases) {
        ToolbarClick(t.app, "about");
        OpenAboutLink(t.app, link);
        EXPECT_EQ(t.shell.calls.back(), (FakeShell::Call{target, "", "", 5}));
        EXPECT_FALSE(t.about.visible);
        EXPECT_TRUE(t.main.IsEnabled(Control::ToolAbout));
    }
}

}  // namespace
