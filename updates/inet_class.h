#pragma once
// INetClass, the program's internet client: one WinINet session from
// creation to destruction, web resources fetched as text with a time limit,
// and an FTP connection with its folder and file operations. A failed
// operation returns false (or nothing) and keeps its reason for ShowError.
//
//   INetClass net(app.os, app.ui.boxes, app.appTitle);
//   std::string text = net.OpenURL("https://klickwerk.example/updates/CurVersion.txt", 10000);
//   if (net.FTPConnect("ftp.example", "user", "secret") && !net.Send("C:\\a.txt", "a.txt")) net.ShowError();
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "platform/internet.h"

class MessageBoxes;
struct Platform;

inline constexpr std::size_t kUrlChunkBytes = 1000;
inline constexpr int kFtpPort = 21;
inline constexpr const char* kUserAgent = "Klickwerk";

// The address as OpenURL fetches it: "http://" in front unless the address
// names its own scheme ("https://", "ftp://", ...).
std::string WebAddress(const std::string& url);

class INetClass {
public:
    INetClass(Platform& os, MessageBoxes& boxes, std::string title);
    ~INetClass();
    INetClass(const INetClass&) = delete;
    INetClass& operator=(const INetClass&) = delete;

    // The resource as text without its surrounding blanks and line breaks;
    // "" when the server cannot be reached. Reads in chunks of 1000 bytes
    // until the data ends or `timeoutMs` have passed since the call began,
    // under the wait pointer.
    std::string OpenURL(const std::string& url, std::uint32_t timeoutMs);

    // A new connection replaces an open one.
    bool FTPConnect(const std::string& server, const std::string& user, const std::string& password,
                    int port = kFtpPort);
    void Disconnect();
    bool CreateDir(const std::string& name);
    bool CD(const std::string& name);
    bool Send(const std::string& localFile, const std::string& remoteFile);
    bool Rename(const std::string& from, const std::string& to);
    // The names in the current folder (pattern "*.*").
    std::optional<std::vector<std::string>> EnumFiles();
    bool GetFile(const std::string& remoteFile, const std::string& localFile);
    bool DelFile(const std::string& name);
    bool DelDir(const std::string& name);
    // "Error " + number + ": " + text of the last failure, in an error box.
    void ShowError();

private:
    bool Kept(bool ok);

    Platform& os_;
    MessageBoxes& boxes_;
    std::string title_;
    InternetHandle session_ = 0;
    InternetHandle connection_ = 0;
    InternetError lastError_;
};
