#include <gtest/gtest.h>

#include "app/startup.h"
#include "core/settings.h"
#include "fakes/fake_startup.h"

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

struct LoadRun : StartupApp {
    explicit LoadRun(const std::string& settings = "") {
        if (!settings.empty()) WriteFile("Settings.ini", "[MAIN]\r\n" + settings);
        WriteFile("Data.dat", kWorkingCopy);
    }
    std::string Setting(const char* key) { return ReadIni(app, kSettingsSection, key); }
    void Run(const std::string& commandLine = "") {
        osInfo.commandLine = commandLine;
        MainLoad(app, services);
    }
};

}  // namespace

TEST(MainLoad, MissingSettingsAreWrittenAfterTheFirstRunOffer) {
    struct Case {
        bool exampleThere;
        BoxAnswer answer;
        Strings boxes;
        BoxStyle lastStyle;
        const char* autoStart;
        int rows;
        Strings calls;
    } cases[] = {
        {true, BoxAnswer::No, {kMissingSettings, kFirstRunQuestion}, BoxStyle::QuestionYesNo, "0", 1,
         {"LoadHookLibrary", "ShowHint", "CheckForUpdates", "FinishLoad"}},
        {true, BoxAnswer::Yes, {kMissingSettings, kFirstRunQuestion, kDemoWarning}, BoxStyle::Information, "1", 2,
         {"HideSplash", "LoadHookLibrary", "CheckForUpdates", "StartPlayback", "FinishLoad"}},
        {false, BoxAnswer::Yes, {kMissingSettings, kFirstRunQuestion, kDemoWarning, kNoExample}, BoxStyle::Error, "0",
         1, {"HideSplash", "LoadHookLibrary", "CheckForUpdates", "FinishLoad"}},
    };
    for (const Case& c : cases) {
        LoadRun r;
        if (c.exampleThere) r.WriteFile("Scripts/FirstRun.kwf", kExample);
        r.boxes.answers = {BoxAnswer::Ok, c.answer};
        r.Run();
        EXPECT_EQ(r.boxes.Texts(), c.boxes);
        EXPECT_EQ(r.boxes.shown.front().style, BoxStyle::Information);
        EXPECT_EQ(r.boxes.shown.back().style, c.lastStyle);
        EXPECT_EQ(
            (Strings{r.Setting("AutoStart"), r.Setting("FirstRun"), r.Setting("StopKey"), r.Setting("LastCheck")}),
            (Strings{c.autoStart, "0", "27", "11/21/2026"}));
        EXPECT_EQ(r.grid.RowCount(), c.rows);
        EXPECT_EQ(r.grid.ColumnCount(), kColumnCount);
        EXPECT_EQ(r.services.calls, c.calls);
        EXPECT_TRUE(r.main.shown);
        EXPECT_EQ(r.app.firstRunDemo, c.answer == BoxAnswer::Yes);
        EXPECT_EQ(r.app.autoStarted, r.services.Called("StartPlayback"));
        EXPECT_EQ(r.ReadFile("Data.dat"), c.rows == 2 ? kExample : kWorkingCopy);
    }
}

TEST(MainLoad, LaterStartsLoadTheWorkingCopyAndFollowTheSettings) {
    const std::pair<const char*, Strings> cases[] = {
        {"FirstRun=0\r\nDYK=1\r\nAutoStart=0\r\n", {"LoadHookLibrary", "ShowHint", "CheckForUpdates", "FinishLoad"}},
        {"FirstRun=0\r\nDYK=0\r\nAutoStart=1\r\n", {"LoadHookLibrary", "CheckForUpdates", "StartPlayback", "FinishLoad"}},
        {"FirstRun=0\r\nDYK=2\r\nAutoStart=2\r\n", {"LoadHookLibrary", "CheckForUpdates", "FinishLoad"}},
    };
    for (const auto& [settings, calls] : cases) {
        LoadRun r(settings);
        r.Run();
        EXPECT_TRUE(r.boxes.shown.empty()) << settings;
        EXPECT_EQ(r.grid.RowCount(), 1) << settings;
        EXPECT_EQ(r.services.calls, calls) << settings;
        EXPECT_EQ(r.app.autoStarted, r.services.Called("StartPlayback")) << settings;
    }
}

TEST(MainLoad, CommandLineScriptReplacesTheWorkingCopyAndFollowsTheSwitches) {
    const std::tuple<const char*, const char*, const char*, bool> cases[] = {
        {"", "0", "1", true},
        {"", "1", "1", true},
        {" /nostart /norep", "1", "0", false},
        {" /norep", "0", "0", true},
        {" /nostart", "0", "1", false},
    };
    for (const auto& [switches, storedRepeat, repeat, plays] : cases) {
        LoadRun r(std::string("FirstRun=1\r\nAutoStart=1\r\nGRepeat=") + storedRepeat + "\r\n");
        r.WriteFile("Scripts/My Script.kwf", kExample);
        r.Run(r.Path("Scripts\\My Script.kwf") + switches);
        EXPECT_TRUE(r.boxes.shown.empty()) << switches;
        EXPECT_EQ(r.grid.RowCount(), 2) << switches;
        EXPECT_EQ(r.app.settings.repeatState, repeat) << switches << storedRepeat;
        EXPECT_EQ(r.main.repeatShownOn, std::string(repeat) == "1") << switches;
        EXPECT_EQ(r.services.Called("StartPlayback"), plays) << switches;
        EXPECT_FALSE(r.app.autoStarted || r.services.Called("ShowHint") || r.services.Called("CheckForUpdates"));
        EXPECT_EQ(r.services.calls.back(), "FinishLoad");
        EXPECT_EQ(r.ReadFile("Data.dat"), kWorkingCopy);
    }
}

TEST(MainLoad, AMissingCommandLineScriptIsNamedAsTypedAndSwitchesAloneLoadNothing) {
    const std::string path = "C:\\No Where\\my script.kwf";
    const std::pair<std::string, Strings> cases[] = {
        {"  " + path + "   /nostart", {"Failed to load " + path + " script file.  Script does not exist/corrupted."}},
        {" /norep", {}},
    };
    for (const auto& [commandLine, boxes] : cases) {
        LoadRun r("FirstRun=0\r\n");
        r.Run(commandLine);
        EXPECT_EQ(r.boxes.Texts(), boxes) << commandLine;
        for (const auto& box : r.boxes.shown) EXPECT_EQ(box.style, BoxStyle::Error);
        EXPECT_EQ(r.grid.RowCount(), 0) << commandLine;
        EXPECT_EQ(r.app.settings.repeatState, "0") << commandLine;
        EXPECT_EQ(r.services.calls, (Strings{"LoadHookLibrary", "FinishLoad"})) << commandLine;
    }
}

TEST(MainLoad, MissingSettingsWithACommandLineKeepTheOfferForLater) {
    LoadRun r;
    r.WriteFile("Scripts/a.kwf", kExample);
    r.Run(r.Path("Scripts\\a.kwf") + " /nostart");
    EXPECT_EQ(r.boxes.Texts(), (Strings{kMissingSettings}));
    EXPECT_EQ(r.Setting("FirstRun"), "1");
    EXPECT_EQ(r.grid.RowCount(), 2);
}
