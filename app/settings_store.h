#pragma once
// The settings file "\Settings.ini", section "MAIN": access helpers, the
// first-run defaults, and the load into and save from the controls.
#include <cstdint>
#include <string>

struct App;

inline constexpr const char* kSettingsSection = "MAIN";
inline constexpr const char* kDefaultColumnWidths = "800, 600, 600, 1500, 1125, 700, 700, 800";
inline constexpr const char* kDefaultHeightTwips = "6610";

// The start-with-Windows entry under HKEY_LOCAL_MACHINE.
inline constexpr const char* kRunKey = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run";
inline constexpr const char* kRunValueName = "klickwerk";

// An empty `file` means the settings file. Missing keys and files read as "".
std::string ReadIni(App& app, const std::string& section, const std::string& key, const std::string& file = "");
std::int16_t WriteIni(App& app, const std::string& section, const std::string& key, const std::string& value,
                      const std::string& file = "");

void WriteFirstRunDefaults(App& app);
// The stop-key code a "StopKey" text stands for: 27 (ESCAPE) when it reads as 0.
std::int16_t StopKeyFromSetting(const std::string& text);

void LoadSet(App& app);
void SaveSet(App& app);
