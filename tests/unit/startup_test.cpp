#include <gtest/gtest.h>

#include "app/startup.h"
#include "fakes/fake_startup.h"
#include "platform/program_arguments.h"
#include "version.h"

TEST(ProgramArgumentsTest, TakesWhatFollowsTheProgramName) {
    const std::pair<const char*, const char*> cases[] = {
        {"Klickwerk.exe", ""},
        {"Klickwerk.exe   ", ""},
        {"Klickwerk.exe a.kwf", "a.kwf"},
        {"C:\\Kw\\Klickwerk.exe a.kwf /nostart /norep", "a.kwf /nostart /norep"},
        {"\"C:\\Program Files\\Kw\\Klickwerk.exe\" C:\\My Scripts\\a.kwf /norep", "C:\\My Scripts\\a.kwf /norep"},
        {"\"C:\\Kw\\Klickwerk.exe\"a.kwf", "a.kwf"},
        {"\"C:\\Kw\\Klickwerk.exe\"\t\t\"quoted path.kwf\" ", "\"quoted path.kwf\" "},
        {"  Klickwerk.exe x", "x"},
        {"\"C:\\Kw\\Klickwerk.exe", ""},
        {"", ""},
    };
    for (const auto& [commandLine, arguments] : cases)
        EXPECT_EQ(ArgumentsAfterProgramName(commandLine), arguments) << commandLine;
}

TEST(SplitCommandLine, PathBeforeTheFirstSwitchAndKnownSwitchesOnly) {
    const std::tuple<const char*, const char*, bool, bool> cases[] = {
        {"", "", false, false},
        {"C:\\a.kwf", "C:\\a.kwf", false, false},
        {"  C:\\My Scripts\\a b.kwf  ", "C:\\My Scripts\\a b.kwf", false, false},
        {"C:\\My Scripts\\a b.kwf /nostart /norep", "C:\\My Scripts\\a b.kwf", true, true},
        {"C:\\a.kwf /norep", "C:\\a.kwf", false, true},
        {"C:\\a.kwf / nostart ", "C:\\a.kwf", true, false},
        {"C:\\a.kwf /NOSTART /NoRep", "C:\\a.kwf", false, false},
        {"C:\\a.kwf /fast /nostart", "C:\\a.kwf", true, false},
        {"C:\\a.kwf /nostart/norep", "C:\\a.kwf", false, false},
        {" /nostart /norep", "", true, true},
        {"/nostart", "/nostart", false, false},
        {"\"C:\\My Scripts\\a.kwf\" /norep", "C:\\My Scripts\\a.kwf", false, true},
        {"C:\\dir/x.kwf /norep", "C:\\dir/x.kwf", false, true},
    };
    for (const auto& [line, path, noStart, noRepeat] : cases) {
        CommandLine split = SplitCommandLine(line);
        EXPECT_EQ(std::tie(split.path, split.noStart, split.noRepeat), std::tie(path, noStart, noRepeat)) << line;
    }
}

TEST(MainSub, SetsTheValuesShowsTheSplashAndLoadsTheWindow) {
    StartupApp t;
    t.app.appTitle = t.app.settingsPath = t.app.scriptStorePath = t.app.errorLogPath = "";
    t.app.closingFlag = true;
    t.WriteFile("Error.log", "0123456789");
    t.WriteFile("Settings.ini", "[MAIN]\r\nFirstRun=0\r\n");
    EXPECT_TRUE(MainSub(t.app, t.services));
    EXPECT_EQ((std::vector<std::string>{t.app.appTitle, t.app.programFolder, t.app.settingsPath, t.app.scriptStorePath,
                                        t.app.errorLogPath}),
              (std::vector<std::string>{"Klickwerk v1.0", t.folder.string(), t.Path("Settings.ini"), t.Path("Data.dat"),
                                        t.Path("Error.log")}));
    EXPECT_EQ(t.app.errorLogSizeAtStart, 10);
    EXPECT_FALSE(t.app.closingFlag);
    ASSERT_GE(t.services.calls.size(), 3u);
    EXPECT_EQ(t.services.calls.front(), "ShowSplash Klickwerk v1.0 / Build " + std::to_string(KW_BUILD_NUMBER));
    EXPECT_EQ(t.services.calls[1], "LoadMainWindow");
    EXPECT_EQ(t.services.calls.back(), "CloseSplash");
    EXPECT_TRUE(t.main.shown);
}

TEST(MainSub, AsksBeforeASecondInstance) {
    for (BoxAnswer answer : {BoxAnswer::No, BoxAnswer::Yes}) {
        StartupApp t;
        t.osInfo.otherInstance = true;
        t.boxes.answers = {answer};
        EXPECT_EQ(MainSub(t.app, t.services), answer == BoxAnswer::Yes);
        EXPECT_EQ(t.boxes.shown.at(0), (ScriptedBoxes::Shown{"There's an instance of Klickwerk v1.0 already running.  "
                                                             "Create a new instance?",
                                                             "Klickwerk v1.0", BoxStyle::QuestionYesNo}));
        EXPECT_EQ(t.services.Called("LoadMainWindow"), answer == BoxAnswer::Yes);
        EXPECT_EQ(t.services.calls.empty(), answer == BoxAnswer::No);
    }
}

TEST(MainSub, TurnsVisualStylesOnOnlyWhereTheSystemDrawsThem) {
    const std::tuple<OsVersion, bool, int, bool> cases[] = {
        {{true, 2, 5, 1}, true, 6, true},   {{true, 2, 6, 0}, true, 6, true},   {{true, 2, 10, 0}, true, 6, true},
        {{true, 2, 5, 0}, true, 6, false},  {{true, 1, 4, 10}, true, 6, false}, {{true, 2, 5, 1}, false, 6, false},
        {{true, 2, 5, 1}, true, 5, false},  {{false, 2, 5, 1}, true, 6, false},
    };
    for (const auto& [version, themed, commonControls, initialised] : cases) {
        StartupApp t;
        t.osInfo.version = version;
        t.osInfo.themed = themed;
        t.osInfo.commonControls = commonControls;
        MainSub(t.app, t.services);
        std::vector<std::pair<unsigned, unsigned>> expected;
        if (initialised) expected.push_back({8u, 0x1FFFu});
        EXPECT_EQ(t.osInfo.initCalls, expected) << version.major << "." << version.minor;
    }
}

TEST(MainSub, RemovesTemporaryFilesLeftByAKilledCopyOnlyWhenRunningAlone) {
    for (bool another : {false, true}) {
        StartupApp t;
        t.osInfo.otherInstance = another;
        t.boxes.answers = {BoxAnswer::Yes};
        for (const char* name : {"Data.dat.tmp", "Scripts/mine.kwf.tmp", "Data.dat", "Scripts/mine.kwf"})
            t.WriteFile(name, "steps");
        MainSub(t.app, t.services);
        // Another copy may be writing through them right now.
        EXPECT_EQ(std::pair(t.Exists("Data.dat.tmp"), t.Exists("Scripts/mine.kwf.tmp")), std::pair(another, another));
        EXPECT_TRUE(t.Exists("Data.dat") && t.Exists("Scripts/mine.kwf"));
    }
}

TEST(CloseMainWindow, FailedSaveCancelsTheClose) {
    StartupApp t;
    t.AddStep({"1", "-1", "-1", "No Click", "", "0", "0", "0"});
    t.app.scriptStorePath = t.Path("no such folder\\Data.dat");
    EXPECT_FALSE(CloseMainWindow(t.app, t.services));
    EXPECT_TRUE(t.services.calls.empty());
    EXPECT_FALSE(t.app.closingFlag);
    EXPECT_FALSE(t.Exists("Settings.ini"));
}

TEST(CloseMainWindow, SavesReleasesAndUnloads) {
    for (int onTop : {0, 1}) {
        StartupApp t;
        t.AddStep({"1", "-1", "-1", "No Click", "", "0", "0", "0"});
        t.AddStep({"2", "-1", "-1", "No Click", "", "0", "0", "0"});
        t.grid.SetMark(1, "NEW");
        t.app.settings.onTop = onTop;
        t.main.topmost = true;
        EXPECT_TRUE(CloseMainWindow(t.app, t.services));
        EXPECT_EQ(t.ReadFile("Data.dat"), "True|||1||-1||-1||No Click||||0||0||0\r\n");
        EXPECT_EQ(t.main.topmost, onTop == 0);
        EXPECT_TRUE(t.app.closingFlag);
        EXPECT_EQ(t.services.calls, (std::vector<std::string>{"ReleaseHooks", "UnloadWindows"}));
        EXPECT_NE(t.ReadFile("Settings.ini").find("OnTop=" + std::to_string(onTop)), std::string::npos);
    }
}

TEST(CloseMainWindow, OffersTheErrorLogOnlyWhenItChanged) {
    // The log at close (nullptr: none), its size at start, whether it is offered.
    const std::tuple<const char*, long, bool> cases[] = {
        {nullptr, 0, false}, {"12345", 5, false}, {"12345", 0, true}, {"12345", 9, true}};
    for (const auto& [logAtClose, sizeAtStart, offered] : cases) {
        StartupApp t;
        if (logAtClose) t.WriteFile("Error.log", logAtClose);
        t.app.errorLogSizeAtStart = sizeAtStart;
        EXPECT_TRUE(CloseMainWindow(t.app, t.services));
        ShownBoxes boxes;
        ShellCalls opened;
        if (offered) {
            boxes = {
                {"Klickwerk v1.0 logged some minor errors during this run.  Please send Error.log to "
                 "support@klickwerk.example.  Thank you.",
                 "Klickwerk v1.0", BoxStyle::Plain}};
            opened = {{t.Path("Error.log"), "0", "0", 1}};
        }
        EXPECT_EQ(t.boxes.shown, boxes) << sizeAtStart;
        EXPECT_EQ(t.shell.calls, opened) << sizeAtStart;
    }
}
