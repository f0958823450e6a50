#pragma once
// Fakes of the operating-system seams that record every call.
#include <functional>
#include <map>
#include <optional>
#include <ostream>
#include <set>
#include <string>
#include <vector>

#include "fakes/fake_views.h"
#include "platform/clock.h"
#include "platform/hook_library.h"
#include "platform/input_device.h"
#include "platform/internet.h"
#include "platform/os_info.h"
#include "platform/registry.h"
#include "platform/shell.h"
#include "platform/window_system.h"

// One synthetic input event, as the system call received it.
struct InputEvent {
    enum Kind { Key, Mouse, SetPos, Unicode } kind;
    std::uint32_t code;   // virtual key, mouse flags, or the character's byte
    std::uint32_t flags;  // key flags (2 = key up)
    int x = 0;
    int y = 0;
    bool operator==(const InputEvent&) const = default;
};

class FakeInput : public InputDevice {
public:
    static constexpr std::uint32_t kAbsoluteMoveFlags = 0x8001;  // move + absolute

    void KeybdEvent(std::uint8_t virtualKey, std::uint8_t scanCode, std::uint32_t flags) override;
    void SendUnicodeChar(char character) override;
    void MouseEvent(std::uint32_t flags, int dx, int dy) override;
    void SetCursorPos(int x, int y) override;
    Point GetCursorPos() override { return cursor; }
    // One screen: the desktop is the screen.
    int GetSystemMetrics(int index) override;
    std::int16_t GetAsyncKeyState(int virtualKey) override {
        if (pressedKeys.count(virtualKey)) return -32767;
        return releasedSinceLastCall.count(virtualKey) ? 1 : 0;
    }
    // A US keyboard layout less the `keyless` characters: the low byte is
    // the key, bit 8 means Shift; -1 when no key makes the character.
    std::int16_t VkKeyScan(char character) override;
    unsigned GetDoubleClickTime() override { return 500; }

    std::vector<InputEvent> events;
    // Called after each event is recorded, to look at the program mid-run.
    std::function<void(const InputEvent&)> onEvent;
    std::set<int> pressedKeys;
    std::set<int> releasedSinceLastCall;  // only the low bit says they were pressed
    std::vector<std::uint8_t> scanCodesSeen;
    std::string keyless;  // as Wine's virtual display lacks "(" and ")"
    Point cursor{100, 100};
    int screenWidth = 1280;
    int screenHeight = 1024;

private:
    void Record(const InputEvent& event);
};

class FakeWindows : public WindowSystem {
public:
    WindowHandle FindByTitle(const std::string& title) override;
    WindowHandle Foreground() override { return foreground; }
    bool SetForeground(WindowHandle window) override;
    bool Show(WindowHandle window, int showCommand) override;
    bool SetPos(WindowHandle window, WindowHandle insertAfter, int x, int y, int width, int height,
                unsigned flags) override;
    Rect GetRect(WindowHandle window) override { return rects[window]; }
    bool Post(WindowHandle window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam) override;
    std::string TitleAt(Point point) override { return titleAt(point); }
    void ShowWaitPointer(bool waiting) override { calls.push_back(waiting ? "wait pointer" : "arrow pointer"); }

    std::map<WindowHandle, std::string> titles;
    std::function<std::string(Point)> titleAt = [](Point) { return std::string(); };
    std::map<WindowHandle, Rect> rects;
    WindowHandle foreground = 0;
    std::vector<std::string> calls;  // "show 7 6", "setpos 7 1 10,20 300x200 0", "wait pointer", ...
};

// Time that passes only when the program waits; enabled timers of the main
// view fire at their intervals while it does.
class FakeClock : public Clock {
public:
    explicit FakeClock(FakeMainView& view) : view_(view) {}
    std::uint32_t TickCount() override { return static_cast<std::uint32_t>(nowMs); }
    double Now() override { return originSeconds + nowMs / 1000.0; }
    Date Today() override { return today; }
    // The short date form "MM/dd/yyyy".
    std::string FormatShortDate(Date date) override;
    std::optional<Date> ParseShortDate(const std::string& text) override;
    void Wait(double seconds, const bool& stop) override;
    void Yield() override;
    void Sleep(std::uint32_t milliseconds) override { Advance(milliseconds); }
    void BeginFineTiming() override { ++fineTiming; }
    void EndFineTiming() override { --fineTiming; }
    void Advance(double milliseconds);

    double nowMs = 0;
    double originSeconds = 1000000.0;
    double yieldCostMs = 0;  // time one message-loop pass takes
    Date today{2026, 11, 21};
    std::vector<double> waitedSeconds;
    int fineTiming = 0;  // BeginFineTiming calls not yet ended

private:
    void RunTimersUntil(double endMs, const bool* stop);
    FakeMainView& view_;
};

class FakeRegistry : public Registry {
public:
    void SetString(RegistryRoot root, const std::string& subkey, const std::string& name,
                   const std::string& data) override;
    void DeleteValue(RegistryRoot root, const std::string& subkey, const std::string& name) override;

    bool refuseWrites = false;  // like HKEY_LOCAL_MACHINE without the rights
    std::map<std::string, std::string> values;  // "subkey\name" -> data
};

class FakeShell : public Shell {
public:
    struct Call {
        std::string file, parameters, directory;
        int show;
        bool operator==(const Call&) const = default;
        friend void PrintTo(const Call& call, std::ostream* out) {
            *out << call.file << " | " << call.parameters << " | " << call.directory << " | show " << call.show;
        }
    };
    std::intptr_t Open(const std::string& file, const std::string& parameters, const std::string& directory,
                       int showCommand) override {
        calls.push_back({file, parameters, directory, showCommand});
        if (onOpen) onOpen();
        return 42;
    }
    std::vector<Call> calls;
    std::function<void()> onOpen;  // looks at the program during the call
};
using ShellCalls = std::vector<FakeShell::Call>;

// Records every call as a line ("install mouse", "init keys 485 2", ...).
class FakeHookLibrary : public HookLibrary {
public:
    bool Load(const std::string& path) override;
    std::optional<HookHandle> Install(HookKind kind) override;
    bool Init(HookKind kind, WindowHandle receiver, HookHandle hook) override;
    void Remove(HookHandle hook) override { calls.push_back("remove " + std::to_string(hook)); }
    void Free() override { calls.push_back("free"); }

    std::vector<std::string> calls;
    bool loads = true;
    std::set<std::string> missing;  // exports the library lacks: "MouseProc", "InitKeys", ...
};

class FakeOsInfo : public OsInfo {
public:
    OsVersion Version() override { return version; }
    bool IsAppThemed() override { return themed; }
    int CommonControlsMajorVersion() override { return commonControls; }
    void InitCommonControls(unsigned size, unsigned classes) override { initCalls.push_back({size, classes}); }
    bool OtherInstanceRunning() override { return otherInstance; }
    std::string ProgramFolder() override { return folder; }
    std::string CommandLine() override { return commandLine; }
    char DecimalSeparator() override { return decimalSeparator; }

    OsVersion version{true, 2, 6, 1};
    bool themed = true;
    int commonControls = 6;
    bool otherInstance = false;
    std::string folder;
    std::string commandLine;
    char decimalSeparator = '.';
    std::vector<std::pair<unsigned, unsigned>> initCalls;
};

// A web server and an FTP server in memory. Every call is recorded as a line
// ("open http://a/b 2684354560 10000", "read 1000", "close 2", "mkdir kw", ...)
// and every handle handed out must be closed again.
class FakeInternet : public Internet {
public:
    explicit FakeInternet(FakeClock& clock) : clock_(clock) {}
    InternetHandle OpenSession(const std::string& agent) override;
    InternetHandle OpenUrl(InternetHandle session, const std::string& url, std::uint32_t flags,
                           std::uint32_t timeoutMs) override;
    std::optional<std::string> Read(InternetHandle file, std::size_t size) override;
    void Close(InternetHandle handle) override;
    InternetHandle FtpConnect(InternetHandle session, const std::string& server, int port, const std::string& user,
                              const std::string& password) override;
    bool FtpMakeDir(InternetHandle, const std::string& name) override { return Ftp("mkdir " + name); }
    bool FtpChangeDir(InternetHandle, const std::string& name) override { return Ftp("cd " + name); }
    bool FtpPut(InternetHandle, const std::string& local, const std::string& remote) override {
        return Ftp("put " + local + " " + remote);
    }
    bool FtpGet(InternetHandle, const std::string& remote, const std::string& local) override {
        return Ftp("get " + remote + " " + local);
    }
    bool FtpRename(InternetHandle, const std::string& from, const std::string& to) override {
        return Ftp("rename " + from + " " + to);
    }
    bool FtpDelete(InternetHandle, const std::string& name) override { return Ftp("delete " + name); }
    bool FtpRemoveDir(InternetHandle, const std::string& name) override { return Ftp("rmdir " + name); }
    std::optional<std::vector<std::string>> FtpList(InternetHandle, const std::string& pattern) override;
    InternetError LastError() override { return error; }

    // url -> content; an address missing here is a server that cannot be reached.
    std::map<std::string, std::string> pages;
    // A page that never ends: every read brings a full chunk.
    std::string endlessPage;
    double msPerRead = 0;  // time each read takes
    std::set<std::string> refused;  // FTP commands that fail ("rmdir", "cd", ...)
    std::vector<std::string> files{"a.txt", "b.txt"};
    InternetError error{12029, "A connection with the server could not be established"};
    std::vector<std::string> calls;
    std::set<InternetHandle> openHandles;

private:
    InternetHandle NewHandle();
    bool Ftp(const std::string& call);
    FakeClock& clock_;
    InternetHandle next_ = 1;
    std::map<InternetHandle, std::string> unread_;
    std::set<InternetHandle> endlessFiles_;
};
