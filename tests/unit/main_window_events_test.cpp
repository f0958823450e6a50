#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/main_window_events.h"
#include "fakes/test_app.h"

namespace {

// Every panel command records its name when it runs.
void WireCommands(TestApp& t, std::vector<std::string>& ran) {
    t.app.seams.changeStopKey = [&ran] { ran.push_back("changeStopKey"); };
    t.app.seams.resetStepCounter = [&ran] { ran.push_back("resetStepCounter"); };
    t.app.seams.changeSteps = [&ran] { ran.push_back("changeSteps"); };
}

TEST(StatusPanelClick, OnlyTheKeyedPanelsRunTheirCommands) {
    const struct {
        int panel;
        std::vector<std::string> ran;
    } cases[] = {
        {1, {}}, {2, {}}, {3, {}}, {4, {"changeStopKey"}}, {5, {"resetStepCounter"}}, {6, {"changeSteps"}},
        {0, {}}, {7, {}}, {-1, {}},
    };
    for (const auto& c : cases) {
        TestApp t;
        std::vector<std::string> ran;
        WireCommands(t, ran);
        StatusPanelClick(t.app, c.panel);
        EXPECT_EQ(ran, c.ran) << "panel " << c.panel;
    }
}

TEST(MainWindowResized, CentresTheHintFrameOnlyWhileItIsVisible) {
    TestApp t;
    int centred = 0;
    t.app.seams.centreHint = [&centred] { ++centred; };
    t.main.SetFrameVisible(Frame::Hint, false);
    MainWindowResized(t.app);
    EXPECT_EQ(centred, 0);
    t.main.SetFrameVisible(Frame::Hint, true);
    MainWindowResized(t.app);
    EXPECT_EQ(centred, 1);
}

}  // namespace
