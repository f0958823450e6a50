#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/enable_controls.h"
#include "app/main_window_events.h"
#include "app/stop_key_panel.h"
#include "app/toolbar_commands.h"
#include "editing/step_count.h"
#include "fakes/test_app.h"
#include "settings_ui/settings_panel.h"

namespace {

const std::string kRunEntry = std::string(kRunKey) + "\\" + kRunValueName;

// A program with the panel's commands wired as the Windows build wires them,
// the main window at 100,200 (457 x 441 pixels) and the panel 188 x 335 pixels.
struct PanelRig {
    PanelRig() {
        WireSettingsPanel(app);
        app.seams.changeStopKey = [this] { OpenStopKeyPanel(app); };
        app.seams.changeSteps = [this] { OpenStepCount(app); };
        t.main.bounds = {100, 200, 557, 641};
        t.settingsPanel.bounds = {0, 0, 188, 335};
    }
    int& Running(Setting key) { return app.settings.*KeyOf(key).checkBox; }

    TestApp t;
    App& app = t.app;
    FakeSettingsPanelView& panel = t.settingsPanel;
};

TEST(SettingsPanel, TheToolbarOpensItWithTheRunningValuesOnTheMainWindowsRightEdge) {
    PanelRig r;
    for (std::size_t i = 0; i < kPanelOptions.size(); ++i) r.Running(kPanelOptions[i].key) = static_cast<int>(i % 3);
    ToolbarClick(r.app, "settings");
    for (std::size_t i = 0; i < kPanelOptions.size(); ++i)
        EXPECT_EQ(r.panel.Option(kPanelOptions[i].key), static_cast<int>(i % 3)) << kPanelOptions[i].control;
    EXPECT_TRUE(r.panel.visible && r.panel.keepAttached);
    // Left at the main window's right edge, middles level: 200 + 441 / 2 - 335 / 2.
    EXPECT_EQ((std::vector<int>{r.panel.bounds.left, r.panel.bounds.top}), (std::vector<int>{557, 253}));
    EXPECT_FALSE(r.t.main.IsEnabled(Control::Start));
    EXPECT_FALSE(r.t.main.IsEnabled(Control::ToolSettings));
}

TEST(SettingsPanel, EachTickHangsItCentredOnTheMainWindowsRightEdge) {
    struct Case {
        Rect main;
        int left, top;
    };
    const Case cases[] = {
        {{100, 200, 557, 641}, 557, 253},   // as opened
        {{-300, 50, 157, 491}, 157, 103},   // moved partly off the screen
        {{100, 200, 900, 1000}, 900, 433},  // resized
        {{0, 0, 400, 100}, 400, -117},      // lower than the panel: the panel reaches above it
    };
    PanelRig r;
    r.panel.bounds = {5, 5, 193, 340};
    for (const Case& c : cases) {
        r.t.main.bounds = c.main;
        KeepSettingsPanelAttached(r.app);
        EXPECT_EQ((std::vector<int>{r.panel.bounds.left, r.panel.bounds.top, r.panel.bounds.right - r.panel.bounds.left}),
                  (std::vector<int>{c.left, c.top, 188}));
    }
    int moves = r.panel.moves;
    KeepSettingsPanelAttached(r.app);
    EXPECT_EQ(r.panel.moves, moves) << "a panel in place is not moved again";
}

TEST(SettingsPanel, AClickedOptionTakesEffectAndIsSavedAtOnce) {
    for (const PanelOption& option : kPanelOptions) {
        PanelRig r;
        for (int value : {1, 0}) {
            r.panel.SetOption(option.key, value);
            OptionClicked(r.app, option.key);
            EXPECT_EQ(r.Running(option.key), value) << option.control;
            EXPECT_EQ(ReadSetting(r.app, option.key), std::to_string(value)) << option.control;
            EXPECT_EQ(r.t.main.topmost, option.key == Setting::OnTop && value == 1) << option.control;
            EXPECT_EQ(r.t.registry.values.count(kRunEntry),
                      option.key == Setting::WithWindows && value == 1 ? 1u : 0u) << option.control;
        }
    }
}

TEST(SettingsPanel, HideSavesSlidesTheOptionsAwayAndRestoresThemForTheNextOpening) {
    PanelRig r;
    ToolbarClick(r.app, "settings");
    r.app.settings.mouseSaver = 1;  // taken from its check box earlier
    RunPanelCommand(r.app, PanelCommand::Hide);
    std::vector<double> lefts, widths;
    for (double offset = 0; offset <= 2800; offset += 200) lefts.push_back(60 - offset), widths.push_back(2820);
    lefts.push_back(60), widths.push_back(2820);
    EXPECT_EQ(r.panel.frameLefts, lefts);
    EXPECT_EQ(r.panel.widths, widths);
    EXPECT_FALSE(r.panel.visible || r.panel.keepAttached);
    EXPECT_EQ(ReadSetting(r.app, Setting::MouseSaver), "1");
    EXPECT_TRUE(r.t.main.IsEnabled(Control::Start) && r.t.main.IsEnabled(Control::ToolSettings));

    // Hidden already: a second hide changes nothing, not even the locked commands.
    r.t.main.SetEnabled(Control::Start, false);
    RunSeam(r.app.seams.hideSettingsPanel);
    EXPECT_EQ(r.panel.frameLefts.size(), lefts.size());
    EXPECT_FALSE(r.t.main.IsEnabled(Control::Start));
}

TEST(SettingsPanel, OtherFramesAndMinimisingHideIt) {
    struct Case {
        const char* what;
        void (*act)(PanelRig&);
        Frame shown;
    };
    const Case cases[] = {
        {"cmdChangeStopKey", [](PanelRig& r) { RunPanelCommand(r.app, PanelCommand::ChangeStopKey); }, Frame::StopKey},
        {"cmdChangeSteps", [](PanelRig& r) { RunPanelCommand(r.app, PanelCommand::ChangeSteps); }, Frame::Steps},
        {"the stopkey panel", [](PanelRig& r) { StatusPanelClick(r.app, 4); }, Frame::StopKey},
        {"minimising", [](PanelRig& r) { r.t.main.state = WindowState::Minimised, ApplyWindowState(r.app); },
         Frame::Main},
    };
    for (const Case& c : cases) {
        PanelRig r;
        ToolbarClick(r.app, "settings");
        c.act(r);
        EXPECT_FALSE(r.panel.visible) << c.what;
        EXPECT_TRUE(r.t.main.FrameVisible(c.shown)) << c.what;
        EXPECT_TRUE(r.t.main.IsEnabled(Control::Start)) << c.what;
    }
}

TEST(SettingsPanel, TheResetQuestionSetsTheCounterToZeroOnlyOnYes) {
    const std::pair<BoxAnswer, const char*> cases[] = {{BoxAnswer::No, "7"}, {BoxAnswer::Yes, "0"}};
    for (const auto& [answer, counter] : cases) {
        for (bool fromStatusBar : {false, true}) {
            PanelRig r;
            WriteSetting(r.app, Setting::StepCounter, "7");
            r.t.main.SetPanelText(5, "7");
            r.t.boxes.answers = {answer};
            fromStatusBar ? StatusPanelClick(r.app, 5) : RunPanelCommand(r.app, PanelCommand::ResetStepCounter);
            EXPECT_EQ(r.t.boxes.shown,
                      (ShownBoxes{{"Reset total clicks counter?", "Klickwerk v1.0", BoxStyle::QuestionYesNo}}));
            EXPECT_EQ(ReadSetting(r.app, Setting::StepCounter), counter);
            EXPECT_EQ(r.t.main.PanelText(5), counter);
        }
    }
}

}  // namespace
