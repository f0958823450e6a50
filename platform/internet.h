#pragma once
// The internet as WinINet offers it: a session, web resources read in
// chunks, and FTP connections with their folder and file calls. Handles are
// opaque (0 = none); a failed call leaves its reason in LastError.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

using InternetHandle = std::uintptr_t;

struct InternetError {
    long number = 0;
    std::string text;
};

class Internet {
public:
    virtual ~Internet() = default;
    // InternetOpenA with the system's own proxy settings.
    virtual InternetHandle OpenSession(const std::string& agent) = 0;
    // InternetOpenUrlA without extra headers. The session's connect, send and
    // receive timeouts are set to `timeoutMs` first, so that a server that
    // never answers cannot hold the caller longer.
    virtual InternetHandle OpenUrl(InternetHandle session, const std::string& url, std::uint32_t flags,
                                   std::uint32_t timeoutMs) = 0;
    // InternetReadFile of up to `size` bytes: "" at the end of the data,
    // nothing when the call fails.
    virtual std::optional<std::string> Read(InternetHandle file, std::size_t size) = 0;
    // InternetCloseHandle.
    virtual void Close(InternetHandle handle) = 0;

    // InternetConnectA to an FTP server, in passive mode.
    virtual InternetHandle FtpConnect(InternetHandle session, const std::string& server, int port,
                                      const std::string& user, const std::string& password) = 0;
    virtual bool FtpMakeDir(InternetHandle connection, const std::string& name) = 0;
    virtual bool FtpChangeDir(InternetHandle connection, const std::string& name) = 0;
    // Binary transfers; a local file of the same name is overwritten.
    virtual bool FtpPut(InternetHandle connection, const std::string& localFile, const std::string& remoteFile) = 0;
    virtual bool FtpGet(InternetHandle connection, const std::string& remoteFile, const std::string& localFile) = 0;
    virtual bool FtpRename(InternetHandle connection, const std::string& from, const std::string& to) = 0;
    virtual bool FtpDelete(InternetHandle connection, const std::string& name) = 0;
    virtual bool FtpRemoveDir(InternetHandle connection, const std::string& name) = 0;
    // FtpFindFirstFileA and InternetFindNextFileA: the names in the current
    // folder that match, nothing when the listing fails.
    virtual std::optional<std::vector<std::string>> FtpList(InternetHandle connection,
                                                                 const std::string& pattern) = 0;
    // The last failed call's error number and text; for an FTP call the
    // server refused, the server's answer.
    virtual InternetError LastError() = 0;
};
