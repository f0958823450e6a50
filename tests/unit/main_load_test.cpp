#include <gtest/gtest.h>

#include "core/settings.h"
#include "app/startup.h"
#include "fakes/fake_startup.h"
#include "fakes/test_app.h"

namespace {

using Strings = std::vector<std::string>;

const char* kMissingSettings = "Failed to locate Settings file.  Loading defaults.";
const char* kFirstRunQuestion =
    "This is your first time running Klickwerk v1.0.  Would you like to load 'FirstRun' example script?";
const char* kDemoWarning =
    "Do not use your mouse and keyboard while the script is running.  You may press ESCAPE to stop the script at any "
    "time.";
const char* kNoExample = "Unable to locate FirstRun.kwf script file.";
const std::string kExample =
    "True|||1||10||10||Left Click||||0||1||0\r\nTrue|||2||20||20||Left Click||||0||1||0\r\n";
const std::string kWorkingCopy = "False|||1||5||5||No Click||||0||0||0\r\n";

struct LoadRun {
    TestApp t;
    FakeStartupServices services{t.app};

    Strings Boxes() const {
        Strings texts;
        for (const auto& box : t.boxes.shown) texts.push_back(box.text);
        return texts;
    }
    std::string Setting(const char* key) { return ReadIni(t.app, kSettingsSection, key); }
    void Run(const std::string& commandLine = "") {
        t.osInfo.commandLine = commandLine;
        MainLoad(t.app, services);
    }
};

}  // namespace

TEST(MainLoad, MissingSettingsWritesDefaultsAfterTheDeclinedOffer) {
    LoadRun r;
    r.t.boxes.answers = {BoxAnswer::Ok, BoxAnswer::No};
    r.Run();
    EXPECT_EQ(r.Boxes(), (Strings{kMissingSettings, kFirstRunQuestion}));
    EXPECT_EQ(r.t.boxes.shown[0].style, BoxStyle::Information);
    EXPECT_EQ(r.t.boxes.shown[1].style, BoxStyle::QuestionYesNo);
    EXPECT_EQ(r.Setting("AutoStart"), "0");
    EXPECT_EQ(r.Setting("FirstRun"), "0");
    EXPECT_EQ(r.Setting("StopKey"), "27");
    EXPECT_EQ(r.Setting("LastCheck"), "11/21/2026");
    EXPECT_EQ(r.services.calls,
              (Strings{"LoadHookLibrary", "ShowHint", "CheckForUpdates", "FinishLoad"}));
    EXPECT_TRUE(r.t.main.shown);
    EXPECT_EQ(static_cast<std::size_t>(r.t.grid.ColumnCount()), 8u);
    EXPECT_FALSE(r.t.app.firstRunDemo);
}

TEST(MainLoad, AcceptedOfferInstallsAndPlaysTheExample) {
    LoadRun r;
    r.t.WriteFile("Scripts/FirstRun.kwf", kExample);
    r.t.WriteFile("Data.dat", kWorkingCopy);
    r.t.boxes.answers = {BoxAnswer::Ok, BoxAnswer::Yes};
    r.Run();
    EXPECT_EQ(r.Boxes(), (Strings{kMissingSettings, kFirstRunQuestion, kDemoWarning}));
    EXPECT_EQ(r.t.ReadFile("Data.dat"), kExample);
    EXPECT_EQ(r.t.grid.RowCount(), 2);
    EXPECT_EQ(r.Setting("AutoStart"), "1");
    EXPECT_EQ(r.Setting("FirstRun"), "0");
    EXPECT_TRUE(r.t.app.firstRunDemo);
    EXPECT_TRUE(r.t.app.autoStarted);
    EXPECT_EQ(r.services.calls,
              (Strings{"HideSplash", "LoadHookLibrary", "CheckForUpdates", "StartPlayback", "FinishLoad"}));
}

TEST(MainLoad, AcceptedOfferWithoutTheExampleSaysSoAndDoesNotPlay) {
    LoadRun r;
    r.t.WriteFile("Data.dat", kWorkingCopy);
    r.t.boxes.answers = {BoxAnswer::Ok, BoxAnswer::Yes};
    r.Run();
    EXPECT_EQ(r.Boxes(), (Strings{kMissingSettings, kFirstRunQuestion, kDemoWarning, kNoExample}));
    EXPECT_EQ(r.t.boxes.shown[3].style, BoxStyle::Error);
    EXPECT_EQ(r.Setting("AutoStart"), "0");
    EXPECT_EQ(r.Setting("FirstRun"), "0");
    EXPECT_EQ(r.t.grid.RowCount(), 1);
    EXPECT_FALSE(r.services.Called("StartPlayback"));
    EXPECT_FALSE(r.services.Called("ShowHint"));
}

TEST(MainLoad, LaterStartsLoadTheWorkingCopyAndFollowTheSettings) {
    struct Case {
        const char* settings;
        Strings calls;
    } cases[] = {
        {"FirstRun=0\r\nDYK=1\r\nAutoStart=0\r\n", {"LoadHookLibrary", "ShowHint", "CheckForUpdates", "FinishLoad"}},
        {"FirstRun=0\r\nDYK=0\r\nAutoStart=1\r\n", {"LoadHookLibrary", "CheckForUpdates", "StartPlayback", "FinishLoad"}},
        {"FirstRun=0\r\nDYK=2\r\nAutoStart=2\r\n", {"LoadHookLibrary", "CheckForUpdates", "FinishLoad"}},
    };
    for (const Case& c : cases) {
        LoadRun r;
        r.t.WriteFile("Settings.ini", std::string("[MAIN]\r\n") + c.settings);
        r.t.WriteFile("Data.dat", kWorkingCopy);
        r.Run();
        EXPECT_TRUE(r.t.boxes.shown.empty()) << c.settings;
        EXPECT_EQ(r.t.grid.RowCount(), 1) << c.settings;
        EXPECT_EQ(r.services.calls, c.calls) << c.settings;
        EXPECT_EQ(r.t.app.autoStarted, r.services.Called("StartPlayback")) << c.settings;
    }
}

TEST(MainLoad, CommandLineScriptReplacesTheWorkingCopyAndFollowsTheSwitches) {
    struct Case {
        const char* switches;
        const char* storedRepeat;
        const char* repeat;
        bool plays;
    } cases[] = {
        {"", "0", "1", true},
        {"", "1", "1", true},
        {" /nostart /norep", "1", "0", false},
        {" /norep", "0", "0", true},
        {" /nostart", "0", "1", false},
        {" /NOSTART", "0", "1", true},
    };
    for (const Case& c : cases) {
        LoadRun r;
        r.t.WriteFile("Settings.ini", std::string("[MAIN]\r\nFirstRun=1\r\nAutoStart=1\r\nGRepeat=") +
                                          c.storedRepeat + "\r\n");
        r.t.WriteFile("Data.dat", kWorkingCopy);
        r.t.WriteFile("Scripts/My Script.kwf", kExample);
        r.Run(r.t.Path("Scripts\\My Script.kwf") + c.switches);
        EXPECT_TRUE(r.t.boxes.shown.empty()) << c.switches;
        EXPECT_EQ(r.t.grid.RowCount(), 2) << c.switches;
        EXPECT_EQ(r.t.grid.Cell(1, kColX), "10") << c.switches;
        EXPECT_EQ(r.t.app.settings.repeatState, c.repeat) << c.switches << c.storedRepeat;
        EXPECT_EQ(r.t.main.repeatShownOn, std::string(c.repeat) == "1") << c.switches;
        EXPECT_EQ(r.services.Called("StartPlayback"), c.plays) << c.switches;
        EXPECT_FALSE(r.t.app.autoStarted);
        EXPECT_FALSE(r.services.Called("ShowHint"));
        EXPECT_FALSE(r.services.Called("CheckForUpdates"));
        EXPECT_EQ(r.services.calls.back(), "FinishLoad");
        EXPECT_EQ(r.t.ReadFile("Data.dat"), kWorkingCopy);
    }
}

TEST(MainLoad, MissingCommandLineScriptIsNamedAsTyped) {
    LoadRun r;
    r.t.WriteFile("Settings.ini", "[MAIN]\r\nFirstRun=0\r\n");
    r.t.WriteFile("Data.dat", kWorkingCopy);
    std::string path = "C:\\No Where\\my script.kwf";
    r.Run("  " + path + "   /nostart");
    ASSERT_EQ(r.Boxes(), (Strings{"Failed to load " + path + " script file.  Script does not exist/corrupted."}));
    EXPECT_EQ(r.t.boxes.shown[0].style, BoxStyle::Error);
    EXPECT_EQ(r.t.grid.RowCount(), 0);
    EXPECT_EQ(r.t.app.settings.repeatState, "0");
    EXPECT_EQ(r.services.calls, (Strings{"LoadHookLibrary", "FinishLoad"}));
}

TEST(MainLoad, SwitchesWithoutAPathLoadNothing) {
    LoadRun r;
    r.t.WriteFile("Settings.ini", "[MAIN]\r\nFirstRun=0\r\n");
    r.t.WriteFile("Data.dat", kWorkingCopy);
    r.Run(" /norep");
    EXPECT_TRUE(r.t.boxes.shown.empty());
    EXPECT_EQ(r.t.grid.RowCount(), 0);
    EXPECT_EQ(r.services.calls, (Strings{"LoadHookLibrary", "FinishLoad"}));
}

TEST(MainLoad, MissingSettingsWithACommandLineKeepTheOfferForLater) {
    LoadRun r;
    r.t.WriteFile("Scripts/a.kwf", kExample);
    r.Run(r.t.Path("Scripts\\a.kwf") + " /nostart");
    EXPECT_EQ(r.Boxes(), (Strings{kMissingSettings}));
    EXPECT_EQ(r.Setting("FirstRun"), "1");
    EXPECT_EQ(r.t.grid.RowCount(), 2);
}
