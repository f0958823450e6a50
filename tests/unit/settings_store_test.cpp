#include <gtest/gtest.h>

#include "core/settings.h"
#include "fakes/test_app.h"

namespace {

using Lines = std::vector<std::string>;

const std::string kRunEntry = std::string(kRunKey) + "\\" + kRunValueName;

void WriteSettings(TestApp& t, const std::string& body) { t.WriteFile("Settings.ini", "[MAIN]\r\n" + body); }

}  // namespace

TEST(SettingsStore, FirstRunDefaultsAreWrittenInOrder) {
    TestApp t;
    WriteFirstRunDefaults(t.app);
    Lines expected = {"FirstRun=0",   "OnTop=0",      "GRepeat=0",       "SmoothPointer=0", "ShowCount=1",
                      "StartMin=0",   "WithWindows=0", "DYK=1",          "Enter4Step=0",    "MouseSaver=0",
                      "StopKey=27",   "StepCounter=0", "LastCheck=11/21/2026", "Height=6610", "RecMode=0"};
    EXPECT_EQ(t.ini.writes, expected);
    EXPECT_NE(t.ReadFile("Settings.ini").find("[MAIN]\r\nFirstRun=0\r\n"), std::string::npos);
}

TEST(SettingsStore, SaveSetWritesTheControlsInOrder) {
    TestApp t;
    SettingValues& s = t.app.settings;
    s.onTop = 1, s.repeatState = "1", s.smoothPointer = 0, s.showCount = 1, s.autoStart = 0, s.startMin = 2;
    s.withWindows = 0, s.dyk = 1, s.enter4Step = 1, s.mouseSaver = 0;
    t.main.SetPanelText(5, "1234");
    t.main.heightTwips = 7200;
    t.app.columnWidths = {"800", " 600", " 600", "1500", "1125", "700", "700", "800"};
    SaveSet(t.app);
    Lines expected = {"OnTop=1",     "GRepeat=1",      "SmoothPointer=0",  "ShowCount=1", "AutoStart=0",
                      "StartMin=2",  "WithWindows=0",  "DYK=1",            "Enter4Step=1", "MouseSaver=0",
                      "StepCounter=1234", "Height=7200", "ColWidth=800, 600, 600,1500,1125,700,700,800"};
    EXPECT_EQ(t.ini.writes, expected);
    EXPECT_FALSE(t.Exists("Error.log"));
}

TEST(SettingsStore, CheckBoxesAndRepeatToggleTakeTheirValues) {
    const std::tuple<const char*, int, const char*> cases[] = {
        {"1", 1, "1"}, {"0", 0, "0"}, {"2", 2, "0"}, {"", 0, "0"}, {"abc", 0, "0"}, {"5", 0, "0"}, {"1x", 1, "0"}};
    for (const auto& [text, checkBox, repeatState] : cases) {
        TestApp t;
        WriteSettings(t, std::string("OnTop=") + text + "\r\nGRepeat=" + text + "\r\nMouseSaver=" + text + "\r\n");
        t.main.repeatShownOn = std::string(repeatState) != "1";
        LoadSet(t.app);
        EXPECT_EQ(t.app.settings.onTop, checkBox) << text;
        EXPECT_EQ(t.app.settings.mouseSaver, checkBox) << text;
        EXPECT_EQ(t.app.settings.repeatState, repeatState) << text;
        EXPECT_EQ(t.main.repeatShownOn, std::string(repeatState) == "1") << text;
    }
}

TEST(SettingsStore, StopKeyStepCounterAndRecordMode) {
    const std::tuple<const char*, std::int16_t, const char*> stopKeys[] = {
        {"0", 27, "ESCAPE"}, {"", 27, "ESCAPE"},   {"abc", 27, "ESCAPE"},  {"112", 112, "F1"},
        {"117", 117, ""},    {"121", 121, "F10"},  {"113abc", 113, "F2"}, {"99999", 27, "ESCAPE"}};
    for (const auto& [stopKey, code, panel4] : stopKeys) {
        TestApp t;
        WriteSettings(t, std::string("StopKey=") + stopKey + "\r\nStepCounter=12abc\r\n");
        LoadSet(t.app);
        EXPECT_EQ(t.app.stopKeyCode, code) << stopKey;
        EXPECT_EQ(t.main.PanelText(4), panel4) << stopKey;
        EXPECT_EQ(t.main.PanelText(5), "12abc");
    }
    for (const char* mode : {"1", "2", "0", "", "01", "1.0"}) {
        TestApp t;
        WriteSettings(t, std::string("RecMode=") + mode + "\r\n");
        LoadSet(t.app);
        EXPECT_EQ(t.app.settings.recordIntoSelected, std::string(mode) == "1") << mode;
    }
}

TEST(SettingsStore, LongValuesAreCutAndGarbageFilesReadAsEmpty) {
    TestApp t;
    WriteSettings(t, "StepCounter=" + std::string(300, '7') + "\r\n");
    LoadSet(t.app);
    EXPECT_EQ(t.main.PanelText(5), std::string(254, '7'));

    for (std::string garbage : {std::string("\0\x01\xff[MAIN\r\n==\r\n[", 14), std::string("OnTop=1\r\nGRepeat=1")}) {
        TestApp g;
        g.WriteFile("Settings.ini", garbage);
        LoadSet(g.app);
        EXPECT_EQ(g.app.settings.onTop, 0);
        EXPECT_EQ(g.app.settings.repeatState, "0");
        EXPECT_EQ(g.app.stopKeyCode, 27);
        EXPECT_FALSE(g.Exists("Error.log"));
    }
}

TEST(SettingsStore, StartWithWindowsEntryFollowsTheCheckBox) {
    TestApp t;
    t.app.settings.withWindows = 1;
    SaveSet(t.app);
    EXPECT_EQ(t.registry.values[kRunEntry], t.app.programFolder + "\\klickwerk.exe");
    t.app.settings.withWindows = 0;
    SaveSet(t.app);
    EXPECT_TRUE(t.registry.values.empty());

    TestApp refused;
    refused.registry.refuseWrites = true;
    refused.app.settings.withWindows = 1;
    SaveSet(refused.app);
    EXPECT_TRUE(refused.registry.values.empty());
    EXPECT_FALSE(refused.Exists("Error.log"));
    EXPECT_NE(refused.ReadFile("Settings.ini").find("ColWidth="), std::string::npos);
}
