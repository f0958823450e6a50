#include <gtest/gtest.h>

#include "app/enable_controls.h"
#include "app/main_window_events.h"
#include "app/toolbar_commands.h"
#include "core/runtime_error.h"
#include "core/status_line.h"
#include "fakes/test_app.h"
#include "playback/run_controls.h"

namespace {

constexpr Control kAllControls[] = {
    Control::ToolSave, Control::ToolLoad, Control::ToolSettings, Control::ToolAbout, Control::ToolHelp,
    Control::ToolExit, Control::Start,    Control::Stop,         Control::Repeat,    Control::Record,
    Control::RecOptions, Control::Grid,   Control::StatusBar,
};

std::vector<Control> Disabled(const FakeMainView& view) {
    std::vector<Control> disabled;
    for (Control control : kAllControls) {
        if (!view.IsEnabled(control)) disabled.push_back(control);
    }
    return disabled;
}

TEST(EnableControls, LocksTheCommandsOfTheRunOrTheWholeWindowButNeverExit) {
    TestApp t;
    EnableControls(t.app, false, false);
    EXPECT_EQ(Disabled(t.main), (std::vector<Control>{Control::ToolSettings, Control::Start, Control::Stop,
                                                       Control::Repeat, Control::Record, Control::RecOptions}));
    EnableControls(t.app, false, true);
    EXPECT_EQ(Disabled(t.main).size(), std::size(kAllControls) - 1);
    EXPECT_TRUE(t.main.IsEnabled(Control::ToolExit));
    EnableControls(t.app, true, false);
    EXPECT_EQ(Disabled(t.main), (std::vector<Control>{Control::ToolSave, Control::ToolLoad, Control::ToolAbout,
                                                       Control::ToolHelp, Control::Grid, Control::StatusBar}));
    EnableControls(t.app, true, true);
    EXPECT_TRUE(Disabled(t.main).empty());
    // The about button stays locked while its box is shown.
    t.about.visible = true;
    EnableControls(t.app, true, true);
    EXPECT_EQ(Disabled(t.main), std::vector<Control>{Control::ToolAbout});
}

TEST(WindowState, PaintKeepsTheWindowOnTopOrReleasesItWhenMinimised) {
    struct Case {
        WindowState state;
        int onTop;
        bool topmostBefore;
        bool topmostAfter;
        bool panelHidden;
    } cases[] = {
        {WindowState::Normal, 1, false, true, false},     {WindowState::Normal, 0, false, false, false},
        {WindowState::Maximised, 1, false, false, false}, {WindowState::Minimised, 1, true, false, true},
        {WindowState::Minimised, 0, true, true, true},
    };
    for (const Case& c : cases) {
        TestApp t;
        int panelHides = 0;
        t.app.seams.hideSettingsPanel = [&] { ++panelHides; };
        t.app.settings.onTop = c.onTop;
        t.main.state = c.state;
        t.main.topmost = c.topmostBefore;
        EnableControls(t.app, false, true);
        ApplyWindowState(t.app);
        EXPECT_EQ(t.main.topmost, c.topmostAfter) << static_cast<int>(c.state) << c.onTop;
        EXPECT_EQ(panelHides, c.panelHidden ? 1 : 0);
        // Minimising unlocks what the settings panel had locked, not the whole window.
        EXPECT_EQ(t.main.IsEnabled(Control::Start), c.state == WindowState::Minimised);
        EXPECT_FALSE(t.main.IsEnabled(Control::Grid));
    }
}

TEST(Toolbar, HelpOpensTheHelpFileMaximisedWithItsButtonDisabledMeanwhile) {
    TestApp t;
    std::vector<bool> helpEnabled;
    t.shell.onOpen = [&] { helpEnabled.push_back(t.main.IsEnabled(Control::ToolHelp)); };
    t.app.programFolder = "C:\\Prog";
    ToolbarClick(t.app, "help");
    ToolbarClick(t.app, "h2");
    EXPECT_EQ(t.shell.calls, ShellCalls(2, {"C:\\Prog\\Klickwerk.chm", "", "", 3}));
    EXPECT_EQ(helpEnabled, (std::vector<bool>{false, false}));
    EXPECT_TRUE(t.main.IsEnabled(Control::ToolHelp));
}

TEST(Toolbar, CommandsOfLaterPartsGoThroughTheirSeams) {
    TestApp t;
    ToolbarClick(t.app, "settings");
    ToolbarClick(t.app, "exit");
    ToolbarClick(t.app, "no such key");
    // Unwired seams do nothing at all, so nothing stays locked.
    EXPECT_TRUE(Disabled(t.main).empty());
    EXPECT_TRUE(t.shell.calls.empty());

    std::vector<std::string> calls;
    t.app.seams.openSettingsPanel = [&] { calls.push_back("settings"); };
    t.app.seams.closeMainWindow = [&] { calls.push_back("close"); };
    t.main.busyPointer = true;
    ToolbarClick(t.app, "settings");
    EXPECT_FALSE(t.main.IsEnabled(Control::ToolSettings));
    EXPECT_FALSE(t.main.IsEnabled(Control::Start));
    EXPECT_TRUE(t.main.IsEnabled(Control::ToolSave));
    ToolbarClick(t.app, "exit");
    EXPECT_EQ(calls, (std::vector<std::string>{"settings", "close"}));
    EXPECT_FALSE(t.main.busyPointer);
    EXPECT_TRUE(t.main.IsEnabled(Control::ToolExit));
}

TEST(Toolbar, AFailingSeamIsLoggedAndLeavesItsButtonUsable) {
    TestApp t;
    t.app.seams.openSettingsPanel = [] { throw RuntimeError(53, "File not found"); };
    ToolbarClick(t.app, "settings");
    EXPECT_NE(t.ReadFile("Error.log").find("Klickwerk File not found 53 TBBDown/Up 0\r\n"), std::string::npos);
    EXPECT_TRUE(Disabled(t.main).empty());
}

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
    EXPECT_EQ((std::vector<int>{t.settingsPanel.bounds.left, t.settingsPanel.bounds.top}),
              (std::vector<int>{400, 100}));
}

class StatusLineTest : public ::testing::Test {
protected:
    StatusLineTest() {
        t.main.onTimer = [this](Timer timer) {
            if (timer == Timer::Blank) OnBlankTimer(t.app);
        };
    }
    // The panel's text after `ms` more milliseconds.
    std::string After(double ms) {
        t.clock.Wait(ms / 1000.0, t.app.stopRequested);
        return t.main.PanelText(1);
    }
    TestApp t;
};

TEST_F(StatusLineTest, MessagesDisappearAfterTheDelayOfTheNewest) {
    ShowStatus(t.app, "given", false, true, 300);
    EXPECT_EQ(After(299), "given");
    EXPECT_EQ(After(1), "");
    ShowStatus(t.app, "first", false, true);
    EXPECT_EQ(After(4000), "first");
    ShowStatus(t.app, "second");
    EXPECT_EQ(After(1999), "second");
    EXPECT_EQ(After(1), "");
    ShowStatus(t.app, "third");
    EXPECT_EQ(After(1500), "third");
    ShowStatus(t.app, "fourth", false, true);
    EXPECT_EQ(After(4999), "fourth");
    EXPECT_EQ(After(1), "");
    EXPECT_FALSE(t.main.TimerEnabled(Timer::Blank));
    EXPECT_TRUE(t.boxes.shown.empty());
}

TEST_F(StatusLineTest, ABoxMessageIsAlsoShownInAnInformationBox) {
    ShowStatus(t.app, "Nothing to save.", true, true);
    EXPECT_EQ(t.boxes.shown, (ShownBoxes{{"Nothing to save.", t.app.appTitle, BoxStyle::Information}}));
    EXPECT_EQ(After(4999), "Nothing to save.");
}

}  // namespace
