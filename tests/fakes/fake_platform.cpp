#include "fakes/fake_platform.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstdio>
#include <cstring>

#include "platform/dates.h"
#include "platform/win_constants.h"

void FakeInput::KeybdEvent(std::uint8_t virtualKey, std::uint8_t scanCode, std::uint32_t flags) {
    scanCodesSeen.push_back(scanCode);
    Record({InputEvent::Key, virtualKey, flags});
}

void FakeInput::SendUnicodeChar(char character) {
    Record({InputEvent::Unicode, static_cast<unsigned char>(character), 0});
}

int FakeInput::GetSystemMetrics(int index) {
    if (index == win::kSmCxScreen || index == win::kSmCxVirtualScreen) return screenWidth;
    if (index == win::kSmCyScreen || index == win::kSmCyVirtualScreen) return screenHeight;
    return 0;
}

void FakeInput::MouseEvent(std::uint32_t flags, int dx, int dy) {
    // An absolute move places the pointer on the 0..65535 scale, kept on screen.
    if ((flags & kAbsoluteMoveFlags) == kAbsoluteMoveFlags) {
        // In doubles: a step far off screen gives a coordinate far outside the scale.
        cursor.x = static_cast<int>(std::clamp(std::lround(dx / 65535.0 * screenWidth), 0L, screenWidth - 1L));
        cursor.y = static_cast<int>(std::clamp(std::lround(dy / 65535.0 * screenHeight), 0L, screenHeight - 1L));
    }
    Record({InputEvent::Mouse, flags, 0, dx, dy});
}

void FakeInput::SetCursorPos(int x, int y) {
    cursor = {x, y};
    Record({InputEvent::SetPos, 0, 0, x, y});
}

void FakeInput::Record(const InputEvent& event) {
    events.push_back(event);
    if (onEvent) onEvent(event);
}

std::int16_t FakeInput::VkKeyScan(char character) {
    static const char* kUnshifted = "`1234567890-=[]\\;',./";
    static const char* kShifted = "~!@#$%^&*()_+{}|:\"<>?";
    static const std::uint8_t kKeys[] = {192, '1', '2', '3', '4', '5', '6', '7', '8', '9', '0',
                                         189, 187, 219, 221, 220, 186, 222, 188, 190, 191};
    unsigned char c = static_cast<unsigned char>(character);
    if (keyless.find(character) != std::string::npos) return -1;
    if (std::isdigit(c)) return c;
    if (std::islower(c)) return static_cast<std::int16_t>(std::toupper(c));
    if (std::isupper(c)) return static_cast<std::int16_t>(0x100 | c);
    if (c == ' ') return ' ';
    if (const char* at = c ? std::strchr(kUnshifted, c) : nullptr) return kKeys[at - kUnshifted];
    if (const char* at = c ? std::strchr(kShifted, c) : nullptr) {
        // "~" shares its key with "`", "!" with "1", and so on.
        return static_cast<std::int16_t>(0x100 | kKeys[at - kShifted]);
    }
    return -1;
}

WindowHandle FakeWindows::FindByTitle(const std::string& title) {
    for (const auto& [handle, text] : titles) {
        if (text == title) return handle;
    }
    return 0;
}

bool FakeWindows::SetForeground(WindowHandle window) {
    calls.push_back("foreground " + std::to_string(window));
    foreground = window;
    return true;
}

bool FakeWindows::Show(WindowHandle window, int showCommand) {
    calls.push_back("show " + std::to_string(window) + " " + std::to_string(showCommand));
    return true;
}

bool FakeWindows::SetPos(WindowHandle window, WindowHandle insertAfter, int x, int y, int width, int height,
                         unsigned flags) {
    calls.push_back("setpos " + std::to_string(window) + " " + std::to_string(insertAfter) + " " +
                    std::to_string(x) + "," + std::to_string(y) + " " + std::to_string(width) + "x" +
                    std::to_string(height) + " " + std::to_string(flags));
    return true;
}

bool FakeWindows::Post(WindowHandle window, unsigned message, std::uintptr_t wParam, std::intptr_t lParam) {
    calls.push_back("post " + std::to_string(window) + " " + std::to_string(message) + " " +
                    std::to_string(wParam) + " " + std::to_string(lParam));
    return true;
}

std::string FakeClock::FormatShortDate(Date date) {
    char text[32];
    std::snprintf(text, sizeof text, "%02d/%02d/%04d", date.month, date.day, date.year);
    return text;
}

std::optional<Date> FakeClock::ParseShortDate(const std::string& text) { return DateFromText(text, "MM/dd/yyyy"); }

void FakeClock::RunTimersUntil(double endMs, const bool* stop) {
    while (!(stop && *stop)) {
        double due = view_.NextDue();
        if (due > endMs) break;
        // A handler that slept has already moved time past `due`.
        nowMs = std::max(nowMs, due);
        view_.FireDue(nowMs);
    }
    if (!(stop && *stop)) nowMs = std::max(nowMs, endMs);
    view_.nowMs = nowMs;
}

void FakeClock::Wait(double seconds, const bool& stop) {
    waitedSeconds.push_back(seconds);
    RunTimersUntil(nowMs + seconds * 1000.0, &stop);
}

void FakeClock::Yield() { RunTimersUntil(nowMs + yieldCostMs, nullptr); }

void FakeClock::Advance(double milliseconds) {
    nowMs += milliseconds;
    view_.nowMs = nowMs;
}

void FakeRegistry::SetString(RegistryRoot, const std::string& subkey, const std::string& name,
                             const std::string& data) {
    if (!refuseWrites) values[subkey + "\\" + name] = data;
}

void FakeRegistry::DeleteValue(RegistryRoot, const std::string& subkey, const std::string& name) {
    if (!refuseWrites) values.erase(subkey + "\\" + name);
}

namespace {
const char* KindName(HookKind kind) { return kind == HookKind::Mouse ? "mouse" : "keys"; }
}  // namespace

bool FakeHookLibrary::Load(const std::string& path) {
    calls.push_back("load " + path);
    return loads;
}

std::optional<HookHandle> FakeHookLibrary::Install(HookKind kind) {
    if (missing.count(kind == HookKind::Mouse ? "MouseProc" : "KeyProc")) return std::nullopt;
    calls.push_back(std::string("install ") + KindName(kind));
    return kind == HookKind::Mouse ? 1 : 2;
}

bool FakeHookLibrary::Init(HookKind kind, WindowHandle receiver, HookHandle hook) {
    if (missing.count(kind == HookKind::Mouse ? "InitMouse" : "InitKeys")) return false;
    calls.push_back(std::string("init ") + KindName(kind) + " " + std::to_string(receiver) + " " + std::to_string(hook));
    return true;
}

InternetHandle FakeInternet::NewHandle() {
    openHandles.insert(next_);
    return next_++;
}

InternetHandle FakeInternet::OpenSession(const std::string& agent) {
    calls.push_back("session " + agent);
    return NewHandle();
}

InternetHandle FakeInternet::OpenUrl(InternetHandle, const std::string& url, std::uint32_t flags,
                                     std::uint32_t timeoutMs) {
    calls.push_back("open " + url + " " + std::to_string(flags) + " " + std::to_string(timeoutMs));
    bool endless = url == endlessPage;
    if (!endless && !pages.count(url)) return 0;
    InternetHandle file = NewHandle();
    if (endless) endlessFiles_.insert(file);
    unread_[file] = endless ? std::string() : pages[url];
    return file;
}

std::optional<std::string> FakeInternet::Read(InternetHandle file, std::size_t size) {
    calls.push_back("read " + std::to_string(size));
    clock_.Advance(msPerRead);
    if (endlessFiles_.count(file)) return std::string(size, 'x');
    std::string chunk = unread_[file].substr(0, size);
    unread_[file].erase(0, chunk.size());
    return chunk;
}

void FakeInternet::Close(InternetHandle handle) {
    if (!handle) return;
    calls.push_back("close " + std::to_string(handle));
    openHandles.erase(handle);
}

InternetHandle FakeInternet::FtpConnect(InternetHandle, const std::string& server, int port, const std::string& user,
                                        const std::string& password) {
    if (!Ftp("connect " + server + ":" + std::to_string(port) + " " + user + " " + password)) return 0;
    return NewHandle();
}

std::optional<std::vector<std::string>> FakeInternet::FtpList(InternetHandle, const std::string& pattern) {
    if (!Ftp("list " + pattern)) return std::nullopt;
    return files;
}

bool FakeInternet::Ftp(const std::string& call) {
    calls.push_back(call);
    return !refused.count(call.substr(0, call.find(' ')));
}
