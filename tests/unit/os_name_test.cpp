#include <gtest/gtest.h>

#include "core/error_log.h"
#include "app/os_name.h"
#include "fakes/test_app.h"

TEST(OsName, NamesTheVersionsOfTheTable) {
    struct Case {
        OsVersion version;
        const char* name;
    } cases[] = {
        {{true, 0, 3, 11}, "Microsoft Win32s"},
        {{true, 0, 9, 99}, "Microsoft Win32s"},
        {{true, 1, 4, 0}, "Microsoft Windows 95"},
        {{true, 1, 4, 10}, "Microsoft Windows 98"},
        {{true, 1, 4, 90}, "Microsoft Windows Millennium Edition"},
        {{true, 1, 4, 20}, ""},
        {{true, 1, 5, 0}, ""},
        {{true, 2, 5, 2}, "Microsoft Windows, Windows Server 2003, 2003 family"},
        {{true, 2, 5, 1}, "Microsoft Windows XP"},
        {{true, 2, 5, 0}, "Microsoft Windows 2000"},
        {{true, 2, 4, 0}, "Microsoft Windows NT"},
        {{true, 2, 3, 51}, "Microsoft Windows NT"},
        {{true, 2, 5, 3}, ""},
        {{true, 2, 6, 1}, ""},
        {{true, 2, 10, 0}, ""},
        {{true, 3, 5, 1}, ""},
        {{false, 2, 5, 1}, "GetWindowsVersion Failed"},
    };
    for (const Case& c : cases) {
        TestApp t;
        t.osInfo.version = c.version;
        t.app.osName = "stale";
        GetWinV(t.app);
        EXPECT_EQ(t.app.osName, c.name) << c.version.platformId << " " << c.version.major << "." << c.version.minor;
    }
}

TEST(ErrorLog, UnwritableLogIsPassedOverQuietly) {
    TestApp t;
    t.app.errorLogPath = t.Path("no such folder\\Error.log");
    LogError(t.app, kErrorSource, "Type mismatch", 13, "ReadData", 0);
    EXPECT_EQ(t.main.PanelText(1), "Error: Type mismatch 13 ReadData 0");
    EXPECT_FALSE(FileExists(t.app, t.app.errorLogPath));
    EXPECT_FALSE(Trapped(t.app, "SaveData", [] { throw RuntimeError(75, "Path/File access error"); }));
}
