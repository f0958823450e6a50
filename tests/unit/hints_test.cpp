#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "app/hints.h"
#include "core/settings.h"
#include "fakes/test_app.h"

namespace {

struct HintApp : TestApp {
    explicit HintApp(const std::string& hints) {
        if (!hints.empty()) WriteFile("DYK.dat", hints);
        app.drawRandom = [this] { return draw; };
    }
    std::string Shown() const { return hint.caption + " " + hint.hint; }
    double draw = 0;
};

TEST(Hints, NextAndPreviousWrapAroundTheHints) {
    HintApp t("|first|second|");
    t.draw = 0.99;
    ShowHintPanel(t.app);
    EXPECT_EQ(t.Shown(), "Hint: 2 second");
    EXPECT_TRUE(t.hint.visible);
    EXPECT_EQ(t.hint.centred, 1);
    std::vector<std::string> shown;
    for (auto* step : {&NextHint, &NextHint, &PreviousHint, &PreviousHint}) {
        step(t.app);
        shown.push_back(t.Shown());
    }
    EXPECT_EQ(shown, (std::vector<std::string>{"Hint: 1 first", "Hint: 2 second", "Hint: 1 first", "Hint: 2 second"}));
}

TEST(Hints, PlaceholdersQuoteTheLiveCaptionsAndAloneMakeLineBreaks) {
    HintApp t(
        "|$B1$ $B2$ $AV$ $S1$ $S2$ $S3$ $S4$ $N1$ $N2$ $N3$ $P4$ $P5$ $P6$ $M1$ $M2$ $M3$ $S3$|"
        "Two$ret$breaks$ret$here, written \r\nacross lines|");
    t.main.captions = {
        {Control::ToolSave, "Save"},   {Control::ToolLoad, "Load"},
        {Control::ToolAbout, "About"}, {Control::Start, "Start"},
        {Control::Stop, "Stop"},       {Control::Record, "F5 TO STOP"},
        {Control::Repeat, "Repeat"},   {Control::ToolSettings, "Settings"},
        {Control::ToolHelp, "Help"},   {Control::ToolExit, "Exit"},
    };
    t.main.menuCaptions = {{MenuEntry::RecordFromBeginning, "From start"},
                           {MenuEntry::RecordFromSelected, "From here"},
                           {MenuEntry::ViewHelpFile, "Help file"}};
    for (int panel : {4, 5, 6}) t.main.SetPanelText(panel, "p" + std::to_string(panel));
    DidYouKnow(t.app, 1, true);
    EXPECT_EQ(t.hint.hint, "Save Load About Start Stop F5 TO STOP Repeat Settings Help Exit p4 p5 p6 From start "
                           "From here Help file F5 TO STOP");
    DidYouKnow(t.app, 2, true);
    EXPECT_EQ(t.hint.hint, "Two\r\nbreaks\r\nhere, written across lines");
}

TEST(Hints, AMissingOrEmptyFileLeavesThePanelAsItWasAndIsLogged) {
    for (const std::string& hints : {std::string(), std::string("|")}) {
        HintApp t(hints);
        if (hints.empty()) t.WriteFile("DYK.dat", "");
        t.hint.SetTexts("Hint: 4", "old");
        ShowHintPanel(t.app);
        EXPECT_EQ(t.Shown(), "Hint: 4 old");
        EXPECT_NE(t.ReadFile("Error.log").find("DidYouKnow"), std::string::npos);
    }
    HintApp missing("");
    NextHint(missing.app);
    EXPECT_NE(missing.ReadFile("Error.log").find("File not found"), std::string::npos);
}

TEST(Hints, DoNotShowIsTheSettingTurnedRoundAndClosingKeepsIt) {
    for (bool dontShow : {false, true}) {
        HintApp t("|one|");
        t.app.settings.dyk = 1;
        ShowHintPanel(t.app);
        EXPECT_FALSE(t.hint.dontShow);
        t.hint.SetDontShow(dontShow);
        DontShowHintsChanged(t.app);
        HideHintPanel(t.app);
        EXPECT_FALSE(t.hint.visible);
        EXPECT_EQ(t.app.settings.dyk, dontShow ? 0 : 1);
        EXPECT_EQ(ReadSetting(t.app, Setting::DYK), dontShow ? "0" : "") << "saved only when not to be shown";
    }
}

}  // namespace
