#include "platform/platform_win.h"

#include <commctrl.h>
#include <shlwapi.h>
#include <uxtheme.h>

#include "platform/program_arguments.h"

namespace {
constexpr const char* kInstanceMutexName = "Klickwerk.SingleInstance";
}  // namespace

std::string ExecutablePath() {
    std::string path(MAX_PATH, '\0');
    for (;;) {
        DWORD length = GetModuleFileNameA(nullptr, path.data(), static_cast<DWORD>(path.size()));
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

OsVersion WinOsInfo::Version() {
    OSVERSIONINFOA info{};
    info.dwOSVersionInfoSize = sizeof info;
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
    BOOL ok = GetVersionExA(&info);
#pragma GCC diagnostic pop
    if (!ok) return {};
    return {true, static_cast<int>(info.dwPlatformId), static_cast<int>(info.dwMajorVersion),
            static_cast<int>(info.dwMinorVersion)};
}

bool WinOsInfo::IsAppThemed() { return ::IsAppThemed() != FALSE; }

int WinOsInfo::CommonControlsMajorVersion() {
    // The library the manifest selected; loading it by name gives that one.
    HMODULE library = LoadLibraryA("comctl32.dll");
    if (!library) return 0;
    int major = 0;
    auto getVersion = reinterpret_cast<DLLGETVERSIONPROC>(
        reinterpret_cast<void*>(GetProcAddress(library, "DllGetVersion")));
    DLLVERSIONINFO info{};
    info.cbSize = sizeof info;
    if (getVersion && SUCCEEDED(getVersion(&info))) major = static_cast<int>(info.dwMajorVersion);
    FreeLibrary(library);
    return major;
}

void WinOsInfo::InitCommonControls(unsigned size, unsigned classes) {
    INITCOMMONCONTROLSEX init{size, classes};
    InitCommonControlsEx(&init);
}

bool WinOsInfo::OtherInstanceRunning() {
    // The mutex lives as long as this instance, so later starts find it.
    if (!instanceMutex_) {
        instanceMutex_.Reset(CreateMutexA(nullptr, FALSE, kInstanceMutexName));
        otherInstance_ = instanceMutex_ && GetLastError() == ERROR_ALREADY_EXISTS;
    }
    return otherInstance_;
}

std::string WinOsInfo::ProgramFolder() {
    std::string path = ExecutablePath();
    return path.substr(0, path.find_last_of('\\'));
}

std::string WinOsInfo::CommandLine() { return ArgumentsAfterProgramName(GetCommandLineA()); }

char WinOsInfo::DecimalSeparator() {
    char separator[4] = ".";
    GetLocaleInfoA(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator, sizeof separator);
    return separator[0] != '\0' ? separator[0] : '.';
}
