#include "updates/inet_class.h"

#include <cctype>
#include <utility>

#include "core/app.h"
#include "platform/win_constants.h"

namespace {

constexpr const char* kHttpPrefix = "http://";
constexpr const char* kAllFiles = "*.*";
// Every fetch goes to the server, and an open connection to it is reused.
constexpr std::uint32_t kOpenUrlFlags = win::kInternetFlagReload | win::kInternetFlagExistingConnect;

// A scheme is a letter followed by letters, digits, "+", "-" or ".", then "://".
bool HasScheme(const std::string& url) {
    std::size_t end = url.find("://");
    if (end == std::string::npos || end == 0 || !std::isalpha(static_cast<unsigned char>(url[0]))) return false;
    for (std::size_t i = 1; i < end; ++i) {
        auto c = static_cast<unsigned char>(url[i]);
        if (!std::isalnum(c) && c != '+' && c != '-' && c != '.') return false;
    }
    return true;
}

// A server's answer often ends with a line break; none of it is content.
std::string Stripped(const std::string& text) {
    auto blank = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; };
    std::size_t first = 0;
    std::size_t last = text.size();
    while (first < last && blank(text[first])) ++first;
    while (last > first && blank(text[last - 1])) --last;
    return text.substr(first, last - first);
}

class WaitPointer {
public:
    explicit WaitPointer(WindowSystem& windows) : windows_(windows) { windows_.ShowWaitPointer(true); }
    ~WaitPointer() { windows_.ShowWaitPointer(false); }
    WaitPointer(const WaitPointer&) = delete;
    WaitPointer& operator=(const WaitPointer&) = delete;

private:
    WindowSystem& windows_;
};

}  // namespace

std::string WebAddress(const std::string& url) {
    if (url.starts_with(kHttpPrefix) || HasScheme(url)) return url;
    return kHttpPrefix + url;
}

INetClass::INetClass(Platform& os, MessageBoxes& boxes, std::string title)
    : os_(os), boxes_(boxes), title_(std::move(title)) {
    session_ = os_.internet.OpenSession(kUserAgent);
    Kept(session_ != 0);
}

INetClass::~INetClass() {
    Disconnect();
    os_.internet.Close(session_);
}

std::string INetClass::OpenURL(const std::string& url, std::uint32_t timeoutMs) {
    std::uint32_t start = os_.clock.TickCount();
    std::string address = WebAddress(url);
    WaitPointer busy(os_.windows);
    InternetHandle file = os_.internet.OpenUrl(session_, address, kOpenUrlFlags, timeoutMs);
    if (!Kept(file != 0)) return "";
    std::string text;
    while (true) {
        std::optional<std::string> chunk = os_.internet.Read(file, kUrlChunkBytes);
        if (!Kept(chunk.has_value()) || chunk->empty()) break;
        text += *chunk;
        if (os_.clock.TickCount() - start >= timeoutMs) break;
    }
    os_.internet.Close(file);
    return Stripped(text);
}

bool INetClass::FTPConnect(const std::string& server, const std::string& user, const std::string& password,
                           int port) {
    Disconnect();
    connection_ = os_.internet.FtpConnect(session_, server, port, user, password);
    return Kept(connection_ != 0);
}

void INetClass::Disconnect() {
    os_.internet.Close(std::exchange(connection_, 0));
}

bool INetClass::CreateDir(const std::string& name) { return Kept(os_.internet.FtpMakeDir(connection_, name)); }

bool INetClass::CD(const std::string& name) { return Kept(os_.internet.FtpChangeDir(connection_, name)); }

bool INetClass::Send(const std::string& localFile, const std::string& remoteFile) {
    return Kept(os_.internet.FtpPut(connection_, localFile, remoteFile));
}

bool INetClass::Rename(const std::string& from, const std::string& to) {
    return Kept(os_.internet.FtpRename(connection_, from, to));
}

std::optional<std::vector<std::string>> INetClass::EnumFiles() {
    std::optional<std::vector<std::string>> names = os_.internet.FtpList(connection_, kAllFiles);
    Kept(names.has_value());
    return names;
}

bool INetClass::GetFile(const std::string& remoteFile, const std::string& localFile) {
    return Kept(os_.internet.FtpGet(connection_, remoteFile, localFile));
}

bool INetClass::DelFile(const std::string& name) { return Kept(os_.internet.FtpDelete(connection_, name)); }

bool INetClass::DelDir(const std::string& name) { return Kept(os_.internet.FtpRemoveDir(connection_, name)); }

void INetClass::ShowError() {
    boxes_.Show("Error " + std::to_string(lastError_.number) + ": " + lastError_.text, title_, BoxStyle::Error);
}

bool INetClass::Kept(bool ok) {
    if (!ok) lastError_ = os_.internet.LastError();
    return ok;
}
