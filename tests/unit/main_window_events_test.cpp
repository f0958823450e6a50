#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/main_window_events.h"
#include "fakes/test_app.h"

namespace {

TEST(StatusPanelClick, OnlyTheKeyedPanelsRunTheirCommands) {
    TestApp t;
    std::vector<std::string> ran;
    t.app.seams.changeStopKey = [&ran] { ran.push_back("changeStopKey"); };
    t.app.seams.resetStepCounter = [&ran] { ran.push_back("resetStepCounter"); };
    t.app.seams.changeSteps = [&ran] { ran.push_back("changeSteps"); };
    for (int panel : {-1, 0, 1, 2, 3, 4, 5, 6, 7}) StatusPanelClick(t.app, panel);
    EXPECT_EQ(ran, (std::vector<std::string>{"changeStopKey", "resetStepCounter", "changeSteps"}));
}

TEST(MainWindowResized, CentresTheHintFrameOnlyWhileItIsVisible) {
    TestApp t;
    MainWindowResized(t.app);
    EXPECT_EQ(t.hint.centred, 0);
    t.hint.SetVisible(true);
    MainWindowResized(t.app);
    EXPECT_EQ(t.hint.centred, 1);
}

TEST(MainWindowMoved, AnOpenSettingsPanelFollowsAtOnce) {
    TestApp t;
    t.main.bounds = {0, 0, 400, 300};
    t.settingsPanel.bounds = {0, 0, 100, 100};
    MainWindowMoved(t.app);
    EXPECT_EQ(t.settingsPanel.moves, 0) << "a closed panel stays where it is";
    t.settingsPanel.keepAttached = true;
    MainWindowMoved(t.app);
    EXPECT_EQ((std::vector<int>{t.settingsPanel.bounds.left, t.settingsPanel.bounds.top}), (std::vector<int>{400, 100}));
}

}  // namespace
