#pragma once
// The Windows implementations of the platform seams, one file each
// (files_win.cpp, clock_win.cpp, ...). Every call is the ANSI one.
#include "platform/win32.h"

#include <string>

#include "platform/clock.h"
#include "platform/files.h"
#include "platform/input_device.h"
#include "platform/internet.h"
#include "platform/os_info.h"
#include "platform/owned_win.h"
#include "platform/registry.h"
#include "platform/settings_file.h"
#include "platform/shell.h"
#include "platform/window_system.h"

class WinFiles : public Files {
public:
    std::optional<std::int64_t> Length(const std::string& path) override;
    std::optional<std::string> ReadAll(const std::string& path) override;
    bool WriteAtomically(const std::string& path, const std::string& data) override;
    bool Append(const std::string& path, const std::string& data) override;
    bool Copy(const std::string& from, const std::string& to) override;
    bool Remove(const std::string& path) override;
    std::vector<std::string> List(const std::string& pattern) override;
    void RemoveLeftovers(const std::string& folder) override;
};

// A new empty temporary file in the folder of `path`, named so that
// RemoveLeftovers finds it; empty when none could be made.
std::string NewTemporaryFile(const std::string& path);

// GetPrivateProfileStringA / WritePrivateProfileStringA. A write goes into a
// copy of the file that then replaces it, so a crash never leaves half a file.
class WinSettingsFile : public SettingsFile {
public:
    std::string Read(const std::string& section, const std::string& key, const std::string& file) override;
    int Write(const std::string& section, const std::string& key, const std::string& value,
              const std::string& file) override;
};

class WinRegistry : public Registry {
public:
    void SetString(RegistryRoot root, const std::string& subkey, const std::string& name,
                   const std::string& data) override;
    void DeleteValue(RegistryRoot root, const std::string& subkey, const std::string& name) override;
};

class WinShell : public Shell {
public:
    std::intptr_t Open(const std::string& file, const std::string& parameters, const std::string& directory,
                       int showCommand) override;
};

// WinINet. Each failed call keeps its error number and text at once, before
// a later call can replace the thread's last error.
class WinInternet : public Internet {
public:
    InternetHandle OpenSession(const std::string& agent) override;
    InternetHandle OpenUrl(InternetHandle session, const std::string& url, std::uint32_t flags,
                           std::uint32_t timeoutMs) override;
    std::optional<std::string> Read(InternetHandle file, std::size_t size) override;
    void Close(InternetHandle handle) override;
    InternetHandle FtpConnect(InternetHandle session, const std::string& server, int port, const std::string& user,
                              const std::string& password) override;
    bool FtpMakeDir(InternetHandle connection, const std::string& name) override;
    bool FtpChangeDir(InternetHandle connection, const std::string& name) override;
    bool FtpPut(InternetHandle connection, const std::string& localFile, const std::string& remoteFile) override;
    bool FtpGet(InternetHandle connection, const std::string& remoteFile, const std::string& localFile) override;
    bool FtpRename(InternetHandle connection, const std::string& from, const std::string& to) override;
    bool FtpDelete(InternetHandle connection, const std::string& name) override;
    bool FtpRemoveDir(InternetHandle connection, const std::string& name) override;
    std::optional<std::vector<std::string>> FtpList(InternetHandle connection,
                                                         const std::string& pattern) override;
    InternetError LastError() override;

private:
    // Keeps the error of a failed call; returns `ok`.
    bool Done(bool ok);
    InternetHandle Opened(void* handle);
    InternetError lastError_;
};

class WinInput : public InputDevice {
public:
    void KeybdEvent(std::uint8_t virtualKey, std::uint8_t scanCode, std::uint32_t flags) override;
    void SendUnicodeChar(char character) override;
    void MouseEvent(std::uint32_t flags, int dx, int dy) override;
    void SetCursorPos(int x, int y) override;
    Point GetCursorPos() override;
    int GetSystemMetrics(int index) override;
    std::int16_t GetAsyncKeyState(int virtualKey) override;
    std::int16_t VkKeyScan(char character) override;
    unsigned GetDoubleClickTime() override;
};

class WinWindows : public WindowSystem {
public:
    WindowHandle FindByTitle(const std::string& title) override;
    WindowHandle Foreground() override;
    bool SetForeground(WindowHandle window) override;
    bool Show(WindowHandle window, int showCommand) override;
    bool SetPos(WindowHandle window, WindowHandle insertAfter, int x, int y, int width, int height,
                unsigned flags) override;
    Rect GetRect(WindowHandle window) override;
    bool Post(WindowHandle window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam) override;
    std::string TitleAt(Point point) override;
    void ShowWaitPointer(bool waiting) override;
};

class WinClock : public Clock {
public:
    std::uint32_t TickCount() override;
    double Now() override;
    Date Today() override;
    std::string FormatShortDate(Date date) override;
    std::optional<Date> ParseShortDate(const std::string& text) override;
    void Wait(double seconds, const bool& stop) override;
    void Yield() override;
    void Sleep(std::uint32_t milliseconds) override;
    void BeginFineTiming() override;
    void EndFineTiming() override;

private:
    // The last answer of MsgWaitForMultipleObjects: 0 once the timer fired.
    DWORD waitResult_ = 0;
};

class WinOsInfo : public OsInfo {
public:
    OsVersion Version() override;
    bool IsAppThemed() override;
    int CommonControlsMajorVersion() override;
    void InitCommonControls(unsigned size, unsigned classes) override;
    bool OtherInstanceRunning() override;
    std::string ProgramFolder() override;
    std::string CommandLine() override;
    char DecimalSeparator() override;

private:
    OwnedKernelHandle instanceMutex_;
    bool otherInstance_ = false;
};

// The full path of the running executable.
std::string ExecutablePath();
