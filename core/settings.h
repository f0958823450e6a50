#pragma once
// The settings file "\Settings.ini", section "MAIN": one table of its keys
// with their forms and first-run values, and the access the whole program uses.
#include <cstdint>
#include <span>
#include <string>

struct App;

inline constexpr const char* kSettingsSection = "MAIN";

// Every key of section "MAIN" in the order they are loaded, saved and, where
// they have a first-run value, written on the first run.
enum class Setting {
    FirstRun, OnTop, GRepeat, SmoothPointer, ShowCount, AutoStart, StartMin, WithWindows, DYK, Enter4Step,
    MouseSaver, StopKey, StepCounter, LastCheck, Height, RecMode, ColWidth, UpdateServer,
};

enum class SettingForm {
    Flag,      // "0" or "1"
    CheckBox,  // a check box's 0, 1 or 2, held in App::settings while the program runs
    Number,
    Date,      // the user's short date form
    List,      // numbers separated by ","
    Text,
};

enum class FirstRun {
    Fixed,       // the default is written
    Today,       // today's date is written
    NotWritten,  // set elsewhere, or by the user only; the default applies until then
};

struct SettingValues;

struct SettingKey {
    const char* name;
    SettingForm form;
    FirstRun firstRun;
    const char* defaultValue;
    int SettingValues::*checkBox;  // where a CheckBox key lives while the program runs
};

const SettingKey& KeyOf(Setting setting);
// Every key, in Setting order.
std::span<const SettingKey> SettingKeys();

// An empty `file` means the settings file. Missing keys and files read as "".
std::string ReadIni(App& app, const std::string& section, const std::string& key, const std::string& file = "");
std::int16_t WriteIni(App& app, const std::string& section, const std::string& key, const std::string& value,
                      const std::string& file = "");

std::string ReadSetting(App& app, Setting setting);
void WriteSetting(App& app, Setting setting, const std::string& value);

// Writes the first-run value of every key that has one, in table order.
void WriteFirstRunDefaults(App& app);

// The start-with-Windows entry under HKEY_LOCAL_MACHINE.
inline constexpr const char* kRunKey = "SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Run";
inline constexpr const char* kRunValueName = "klickwerk";

// The stop-key code a "StopKey" text stands for: 27 (ESCAPE) when it reads as 0.
std::int16_t StopKeyFromSetting(const std::string& text);

// Loads every key into the running program, and saves it back.
void LoadSet(App& app);
void SaveSet(App& app);

// The press handler of cmdRepeat: flips whole-script repetition and shows it.
void PressRepeatToggle(App& app);
