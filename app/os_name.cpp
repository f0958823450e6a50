#include "app/os_name.h"

#include "core/app.h"
#include "core/error_log.h"

namespace {

constexpr int kAnyVersion = -1;

struct NamedVersion {
    int platformId;
    int major;  // kAnyVersion matches every major version
    int minor;  // kAnyVersion matches every minor version
    const char* name;
};

constexpr NamedVersion kNames[] = {
    {0, kAnyVersion, kAnyVersion, "Microsoft Win32s"},
    {1, 4, 0, "Microsoft Windows 95"},
    {1, 4, 10, "Microsoft Windows 98"},
    {1, 4, 90, "Microsoft Windows Millennium Edition"},
    {2, 5, 2, "Microsoft Windows, Windows Server 2003, 2003 family"},
    {2, 5, 1, "Microsoft Windows XP"},
    {2, 5, 0, "Microsoft Windows 2000"},
};

bool Matches(int wanted, int actual) { return wanted == kAnyVersion || wanted == actual; }

}  // namespace

std::string OSName(const OsVersion& version) {
    if (!version.ok) return "GetWindowsVersion Failed";
    if (version.platformId == 2 && version.major < 5) return "Microsoft Windows NT";
    for (const NamedVersion& named : kNames) {
        if (named.platformId == version.platformId && Matches(named.major, version.major) &&
            Matches(named.minor, version.minor)) {
            return named.name;
        }
    }
    return "";
}

void GetWinV(App& app) {
    Trapped(app, "GetWinV", [&] { app.osName = OSName(app.os.os.Version()); });
}
