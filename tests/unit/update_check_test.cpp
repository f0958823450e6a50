#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "core/settings.h"
#include "fakes/test_app.h"
#include "platform/dates.h"
#include "platform/win_constants.h"
#include "updates/update_check.h"
#include "version.h"

namespace {

const std::string kOwnBuild = std::to_string(KW_BUILD_NUMBER);
const std::string kNextBuild = std::to_string(KW_BUILD_NUMBER + 1);
const std::string kMirror = "http://127.0.0.1:8000/kw/";

TEST(UpdateCheck, CalendarMonthsEndOnTheSameDayOrTheMonthsLast) {
    struct Case {
        Date from;
        Date twoMonthsLater;
    };
    const Case cases[] = {
        {{2026, 1, 15}, {2026, 3, 15}}, {{2026, 1, 31}, {2026, 3, 31}},  {{2025, 12, 31}, {2026, 2, 28}},
        {{2023, 12, 31}, {2024, 2, 29}}, {{2026, 11, 30}, {2027, 1, 30}}, {{2026, 8, 31}, {2026, 10, 31}},
    };
    for (const Case& c : cases) EXPECT_EQ(AddMonths(c.from, 2), c.twoMonthsLater) << c.from.year << c.from.month;
}

TEST(UpdateCheck, TheReminderIsDueTwoCalendarMonthsAfterTheLastCheck) {
    struct Case {
        Date lastCheck;
        Date today;
        bool due;
    };
    const Case cases[] = {
        {{2026, 9, 21}, {2026, 11, 21}, true},  {{2026, 9, 22}, {2026, 11, 21}, false},
        {{2025, 12, 31}, {2026, 2, 28}, true},  {{2025, 12, 31}, {2026, 2, 27}, false},
        {{2024, 1, 1}, {2026, 11, 21}, true},   {{2026, 11, 21}, {2026, 11, 21}, false},
        {{2027, 1, 1}, {2026, 11, 21}, false},  // a date ahead, after the clock was set back
    };
    for (const Case& c : cases) EXPECT_EQ(ReminderDue(c.lastCheck, c.today), c.due) << c.lastCheck.day;
}

TEST(UpdateCheck, DatesAreReadInTheOrderOfTheShortDatePattern) {
    struct Case {
        const char* text;
        const char* pattern;
        std::optional<Date> date;
    };
    const Case cases[] = {
        {"11/21/2026", "M/d/yyyy", Date{2026, 11, 21}},   {"21.11.2026", "dd.MM.yyyy", Date{2026, 11, 21}},
        {"21.11.26", "dd.MM.yy", Date{2026, 11, 21}},      {"21.11.45", "dd.MM.yy", Date{1945, 11, 21}},
        {"2026/11/21", "yyyy/MM/dd", Date{2026, 11, 21}},  {"2026-11-21", "M/d/yyyy", Date{2026, 11, 21}},
        {"2/29/2024", "M/d/yyyy", Date{2024, 2, 29}},       {"2/29/2026", "M/d/yyyy", std::nullopt},
        {"13/1/2026", "M/d/yyyy", std::nullopt},            {"11/21", "M/d/yyyy", std::nullopt},
        {"Nov 21 2026", "M/d/yyyy", std::nullopt},          {"", "M/d/yyyy", std::nullopt},
        {"11/21/2026", "'Day' d", std::nullopt},
    };
    for (const Case& c : cases) EXPECT_EQ(DateFromText(c.text, c.pattern), c.date) << c.text << " " << c.pattern;
}

TEST(UpdateCheck, OnlyANumberAboveTheOwnBuildIsOffered) {
    struct Case {
        const char* answer;
        long ownBuild;
        const char* serverBuild;
        bool offered;
    };
    const Case cases[] = {
        {"1234", 1233, "1234", true},
        {"1234", 1234, "1234", false},
        {"1234", 1235, "1234", false},
        {"1234 with the new hot keys", 1233, "1234 with the new hot keys", true},
        {"12", 11, "12", true},
        {"12a4", 11, "N/A", false},
        {"<!DOCTYPE HTML><html><title>Error 404</title></html>", 1233, "N/A", false},
        {"", 1233, "N/A", false},
        {"N/A", -1, "N/A", false},
    };
    for (const Case& c : cases) {
        std::string build = ServerBuild(c.answer);
        EXPECT_EQ(build, c.serverBuild) << c.answer;
        EXPECT_EQ(OffersUpdate(build, c.ownBuild), c.offered) << c.answer;
    }
}

TEST(UpdateCheck, TheServerFolderIsTheProgramsSiteUnlessTheSettingsNameAnother) {
    const std::pair<const char*, const char*> cases[] = {
        {"", "https://klickwerk.example/updates/"},
        {"http://127.0.0.1:8000", "http://127.0.0.1:8000/"},
        {"  https://mirror.example/kw/ ", "https://mirror.example/kw/"},
        {"mirror.example/kw", "http://mirror.example/kw/"},
    };
    for (const auto& [setting, folder] : cases) {
        TestApp t;
        WriteSetting(t.app, Setting::UpdateServer, setting);
        EXPECT_EQ(UpdateFolder(t.app), folder);
    }
}

// The update window against a server of one answer.
struct UpdatesApp : TestApp {
    explicit UpdatesApp(std::optional<std::string> answer) {
        WriteSetting(app, Setting::UpdateServer, kMirror);
        if (answer) internet.pages[kMirror + "CurVersion.txt"] = *answer;
    }
    std::string LastCheck() { return ReadSetting(app, Setting::LastCheck); }
};

TEST(UpdateCheck, TheWindowTellsWhatTheServerOffers) {
    struct Case {
        std::optional<std::string> answer;
        std::string shown;
        bool downloadEnabled;
    };
    const Case cases[] = {
        {kNextBuild + "\r\n", "There is an update available!\r\nPress download button to download build " + kNextBuild,
         true},
        {kOwnBuild, "No updates available at this time.", false},
        {"<html><body>Not found</body></html>", "No updates available at this time.", false},
        {std::nullopt, "No updates available at this time.", false},
    };
    for (const Case& c : cases) {
        UpdatesApp t(c.answer);
        ShowUpdates(t.app);
        EXPECT_EQ(t.updates.heading, "Updates for Klickwerk v1.0 Build " + kOwnBuild);
        EXPECT_EQ(t.updates.displays, (std::vector<std::string>{"Accessing the server... Please wait.", c.shown}));
        EXPECT_EQ(t.updates.downloadEnabled, c.downloadEnabled) << c.shown;
        EXPECT_EQ(t.internet.calls.at(1), "open " + kMirror + "CurVersion.txt 2684354560 10000");
    }
}

TEST(UpdateCheck, ClosingTheWindowRecordsTheCheckAndTakesItOffTheTop) {
    UpdatesApp t(kOwnBuild);
    std::string lastCheckWhileOpen = "unread";
    t.updates.user = [&](UpdatesEvents& events) {
        lastCheckWhileOpen = t.LastCheck();
        events.Close();
    };
    ShowUpdates(t.app);
    EXPECT_EQ(lastCheckWhileOpen, "");
    EXPECT_EQ(t.LastCheck(), "11/21/2026");
    EXPECT_FALSE(t.updates.open);
    unsigned keepPlaceAndSize = win::kSwpNoMove | win::kSwpNoSize;
    EXPECT_EQ(t.windows.calls.back(), "setpos 77 " + std::to_string(win::kHwndNoTopmost) + " 0,0 0x0 " +
                                          std::to_string(keepPlaceAndSize));
}

TEST(UpdateCheck, TheButtonsOpenThePageAndTheArchiveOfTheServerFolder) {
    UpdatesApp t(kNextBuild);
    t.updates.user = [&](UpdatesEvents& events) {
        events.OpenUpdates();
        EXPECT_TRUE(t.updates.open);
        events.Download();
    };
    ShowUpdates(t.app);
    EXPECT_EQ(t.shell.calls, (ShellCalls{{kMirror + "Updates.htm", "", "", win::kSwShowNormal},
                                         {kMirror + "klickwerk.zip", "0", "0", win::kSwShowMaximized}}));
    EXPECT_EQ(t.boxes.shown, (ShownBoxes{{"Please close Klickwerk v1.0 before installing the update.", "Klickwerk v1.0",
                                          BoxStyle::SystemModalInformation}}));
    EXPECT_FALSE(t.updates.open);
    EXPECT_EQ(t.LastCheck(), "11/21/2026");
}

TEST(UpdateCheck, TheReminderAsksOnlyWhenTheLastCheckIsTwoMonthsBack) {
    struct Case {
        const char* lastCheck;
        BoxAnswer answer;
        bool asked;
        bool windowShown;
        const char* lastCheckAfter;
    };
    const Case cases[] = {
        {"", BoxAnswer::Yes, false, false, ""},
        {"09/22/2026", BoxAnswer::Yes, false, false, "09/22/2026"},
        {"09/21/2026", BoxAnswer::No, true, false, "09/21/2026"},
        {"09/21/2026", BoxAnswer::Yes, true, true, "11/21/2026"},
    };
    for (const Case& c : cases) {
        UpdatesApp t(kOwnBuild);
        if (*c.lastCheck) WriteSetting(t.app, Setting::LastCheck, c.lastCheck);
        t.boxes.answers = {c.answer};
        CheckForUpdates(t.app);
        std::vector<std::string> questions;
        if (c.asked) questions = {"You have not checked for updates since 09/21/2026\r\nWould you like to check for updates now?"};
        EXPECT_EQ(t.boxes.Texts(), questions) << c.lastCheck;
        EXPECT_EQ(!t.updates.heading.empty(), c.windowShown) << c.lastCheck;
        EXPECT_EQ(t.LastCheck(), c.lastCheckAfter);
        EXPECT_EQ(t.ReadFile("Error.log"), "");
    }
}

TEST(UpdateCheck, ALastCheckThatIsNoDateIsLoggedAndAsksNothing) {
    UpdatesApp t(kOwnBuild);
    WriteSetting(t.app, Setting::LastCheck, "yesterday");
    CheckForUpdates(t.app);
    EXPECT_TRUE(t.boxes.shown.empty());
    EXPECT_NE(t.ReadFile("Error.log").find("Type mismatch 13 CheckForUpdates"), std::string::npos);
}

}  // namespace
