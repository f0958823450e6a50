#pragma once
#include <string>

struct OsVersion {
    bool ok = false;  // false when GetVersionExA failed
    int platformId = 0;
    int major = 0;
    int minor = 0;
};

class OsInfo {
public:
    virtual ~OsInfo() = default;
    virtual OsVersion Version() = 0;
    virtual bool IsAppThemed() = 0;
    virtual int CommonControlsMajorVersion() = 0;
    // InitCommonControlsEx with the given structure size and class flags.
    virtual void InitCommonControls(unsigned size, unsigned classes) = 0;
    // True when another instance of the program already runs.
    virtual bool OtherInstanceRunning() = 0;
    virtual std::string ProgramFolder() = 0;
    virtual std::string CommandLine() = 0;
    // The user's decimal separator, for numbers the program formats.
    virtual char DecimalSeparator() = 0;
};
