#pragma once
// The update check: the reminder after two calendar months without a check,
// and frmUpdates, which compares the program's build with the build the
// server's "CurVersion.txt" names and offers "Updates.htm" and the archive.
#include <cstdint>
#include <string>

#include "platform/clock.h"

struct App;

// The program's own site; "UpdateServer" in "\Settings.ini" can name another
// folder (a mirror).
inline constexpr const char* kUpdateFolder = "https://klickwerk.example/updates/";
// How long frmUpdates waits for "CurVersion.txt".
inline constexpr std::uint32_t kUpdateTimeoutMs = 10000;
inline constexpr const char* kNoServerBuild = "N/A";

// The server folder, ending in "/".
std::string UpdateFolder(App& app);
// What the server's answer says its build is: "N/A" unless its first three
// characters are a number.
std::string ServerBuild(const std::string& answer);
// Only a number above the own build is an update; "N/A" never is.
bool OffersUpdate(const std::string& serverBuild, long ownBuild);
// Two calendar months after the last check are not later than today.
bool ReminderDue(Date lastCheck, Date today);

// The reminder, run at start-up: asks when the last check ("LastCheck") lies
// two months or more back, and opens frmUpdates on Yes.
void CheckForUpdates(App& app);
// frmUpdates; returns when the user has closed it.
void ShowUpdates(App& app);
