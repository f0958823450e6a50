#include <gtest/gtest.h>

#include "app/os_name.h"
#include "core/error_log.h"
#include "fakes/test_app.h"
#include "playback/waits.h"

TEST(OsName, LooksTheVersionUpAndNamesNoneItDoesNotKnow) {
    const std::pair<OsVersion, const char*> cases[] = {
        {{true, 0, 9, 99}, "Microsoft Win32s"},  // any Win32s version
        {{true, 1, 4, 0}, kWindows95Name},  // the name the waits look for
        {{true, 1, 4, 20}, ""},
        {{true, 2, 5, 1}, "Microsoft Windows XP"},
        {{true, 2, 3, 51}, "Microsoft Windows NT"},
        {{true, 2, 6, 1}, ""},
        {{true, 3, 5, 1}, ""},
        {{false, 2, 5, 1}, "GetWindowsVersion Failed"},
    };
    for (const auto& [version, name] : cases)
        EXPECT_EQ(OSName(version), name) << version.platformId << " " << version.major << "." << version.minor;
    TestApp t;
    t.osInfo.version = {true, 2, 6, 1};
    t.app.osName = "stale";
    GetWinV(t.app);
    EXPECT_EQ(t.app.osName, "");
}

TEST(ErrorLog, UnwritableLogIsPassedOverQuietly) {
    TestApp t;
    t.app.errorLogPath = t.Path("no such folder\\Error.log");
    LogError(t.app, kErrorSource, "Type mismatch", 13, "ReadData", 0);
    EXPECT_EQ(t.main.PanelText(1), "Error: Type mismatch 13 ReadData 0");
    EXPECT_FALSE(FileExists(t.app, t.app.errorLogPath));
    EXPECT_FALSE(Trapped(t.app, "SaveData", [] { throw RuntimeError(75, "Path/File access error"); }));
}
