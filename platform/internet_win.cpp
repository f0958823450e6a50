#include "platform/platform_win.h"

#include <wininet.h>

namespace {
HINTERNET Hinternet(InternetHandle handle) { return reinterpret_cast<HINTERNET>(handle); }
InternetHandle Handle(HINTERNET handle) { return reinterpret_cast<InternetHandle>(handle); }

// Text of the system's messages ends with a line break.
std::string WithoutTrailingSpace(std::string text) {
    while (!text.empty() && static_cast<unsigned char>(text.back()) <= ' ') text.pop_back();
    return text;
}

// The server's last answer, which is the reason for ERROR_INTERNET_EXTENDED_ERROR.
std::string ServerResponse() {
    DWORD code = 0;
    DWORD length = 0;
    InternetGetLastResponseInfoA(&code, nullptr, &length);
    std::string text(length + 1, '\0');
    if (!InternetGetLastResponseInfoA(&code, text.data(), &length)) return "";
    text.resize(length);
    return text;
}

// WinINet's own messages live in its module, the others in the system's table.
std::string MessageText(DWORD number) {
    char* buffer = nullptr;
    DWORD length = FormatMessageA(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_HMODULE |
                                      FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS,
                                  GetModuleHandleA("wininet.dll"), number, 0, reinterpret_cast<char*>(&buffer), 0,
                                  nullptr);
    std::string text = length ? std::string(buffer, length) : "Unknown error";
    LocalFree(buffer);
    return text;
}

void SetTimeouts(HINTERNET session, DWORD milliseconds) {
    for (DWORD option : {INTERNET_OPTION_CONNECT_TIMEOUT, INTERNET_OPTION_SEND_TIMEOUT,
                         INTERNET_OPTION_RECEIVE_TIMEOUT}) {
        InternetSetOptionA(session, option, &milliseconds, sizeof milliseconds);
    }
}
}  // namespace

bool WinInternet::Done(bool ok) {
    if (ok) return true;
    DWORD number = GetLastError();
    std::string text = number == ERROR_INTERNET_EXTENDED_ERROR ? ServerResponse() : MessageText(number);
    lastError_ = {static_cast<long>(number), WithoutTrailingSpace(text)};
    return false;
}

InternetHandle WinInternet::Opened(void* handle) {
    Done(handle != nullptr);
    return Handle(static_cast<HINTERNET>(handle));
}

InternetHandle WinInternet::OpenSession(const std::string& agent) {
    return Opened(InternetOpenA(agent.c_str(), INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0));
}

InternetHandle WinInternet::OpenUrl(InternetHandle session, const std::string& url, std::uint32_t flags,
                                    std::uint32_t timeoutMs) {
    SetTimeouts(Hinternet(session), timeoutMs);
    return Opened(InternetOpenUrlA(Hinternet(session), url.c_str(), nullptr, 0, flags, 0));
}

std::optional<std::string> WinInternet::Read(InternetHandle file, std::size_t size) {
    std::string chunk(size, '\0');
    DWORD read = 0;
    if (!Done(InternetReadFile(Hinternet(file), chunk.data(), static_cast<DWORD>(size), &read))) return std::nullopt;
    chunk.resize(read);
    return chunk;
}

void WinInternet::Close(InternetHandle handle) {
    if (handle) InternetCloseHandle(Hinternet(handle));
}

InternetHandle WinInternet::FtpConnect(InternetHandle session, const std::string& server, int port,
                                       const std::string& user, const std::string& password) {
    return Opened(InternetConnectA(Hinternet(session), server.c_str(), static_cast<INTERNET_PORT>(port), user.c_str(),
                                   password.c_str(), INTERNET_SERVICE_FTP, INTERNET_FLAG_PASSIVE, 0));
}

bool WinInternet::FtpMakeDir(InternetHandle connection, const std::string& name) {
    return Done(FtpCreateDirectoryA(Hinternet(connection), name.c_str()));
}

bool WinInternet::FtpChangeDir(InternetHandle connection, const std::string& name) {
    return Done(FtpSetCurrentDirectoryA(Hinternet(connection), name.c_str()));
}

bool WinInternet::FtpPut(InternetHandle connection, const std::string& localFile, const std::string& remoteFile) {
    return Done(FtpPutFileA(Hinternet(connection), localFile.c_str(), remoteFile.c_str(), FTP_TRANSFER_TYPE_BINARY, 0));
}

bool WinInternet::FtpGet(InternetHandle connection, const std::string& remoteFile, const std::string& localFile) {
    return Done(FtpGetFileA(Hinternet(connection), remoteFile.c_str(), localFile.c_str(), FALSE, FILE_ATTRIBUTE_NORMAL,
                            FTP_TRANSFER_TYPE_BINARY | INTERNET_FLAG_RELOAD, 0));
}

bool WinInternet::FtpRename(InternetHandle connection, const std::string& from, const std::string& to) {
    return Done(FtpRenameFileA(Hinternet(connection), from.c_str(), to.c_str()));
}

bool WinInternet::FtpDelete(InternetHandle connection, const std::string& name) {
    return Done(FtpDeleteFileA(Hinternet(connection), name.c_str()));
}

bool WinInternet::FtpRemoveDir(InternetHandle connection, const std::string& name) {
    return Done(FtpRemoveDirectoryA(Hinternet(connection), name.c_str()));
}

std::optional<std::vector<std::string>> WinInternet::FtpList(InternetHandle connection,
                                                                  const std::string& pattern) {
    WIN32_FIND_DATAA found{};
    HINTERNET search = FtpFindFirstFileA(Hinternet(connection), pattern.c_str(), &found, INTERNET_FLAG_RELOAD, 0);
    std::vector<std::string> names;
    // An empty folder is a listing without names, not a failure; Wine tells
    // it without an error number.
    if (!search) {
        DWORD error = GetLastError();
        if (error == ERROR_NO_MORE_FILES || error == ERROR_SUCCESS) return names;
        Done(false);
        return std::nullopt;
    }
    bool more = true;
    while (more) {
        names.push_back(found.cFileName);
        more = InternetFindNextFileA(search, &found) != FALSE;
    }
    bool complete = GetLastError() == ERROR_NO_MORE_FILES;
    if (!complete) Done(false);
    InternetCloseHandle(search);
    if (!complete) return std::nullopt;
    return names;
}

InternetError WinInternet::LastError() { return lastError_; }
