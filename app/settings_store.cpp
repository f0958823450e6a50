#include "app/settings_store.h"

#include "app/app.h"
#include "app/error_log.h"
#include "playback/repeat_toggle.h"
#include "script/basic_text.h"
#include "script/runtime_error.h"
#include "script/vocabulary.h"

namespace {

enum class FirstRun {
    Fixed,       // `value` is written
    Today,       // today's date in the user's short date form
    NotWritten,  // set elsewhere; `value` is what applies until then
};

struct SettingKey {
    const char* name;
    FirstRun firstRun;
    const char* value;
};

// Every key; the written ones in the order the first-run defaults are written.
constexpr SettingKey kSettingKeys[] = {
    {"FirstRun", FirstRun::Fixed, "0"},
    {"OnTop", FirstRun::Fixed, "0"},
    {"GRepeat", FirstRun::Fixed, "0"},
    {"SmoothPointer", FirstRun::Fixed, "0"},
    {"ShowCount", FirstRun::Fixed, "1"},
    {"StartMin", FirstRun::Fixed, "0"},
    {"WithWindows", FirstRun::Fixed, "0"},
    {"DYK", FirstRun::Fixed, "1"},
    {"Enter4Step", FirstRun::Fixed, "0"},
    {"MouseSaver", FirstRun::Fixed, "0"},
    {"StopKey", FirstRun::Fixed, "27"},
    {"StepCounter", FirstRun::Fixed, "0"},
    {"LastCheck", FirstRun::Today, ""},
    {"Height", FirstRun::Fixed, kDefaultHeightTwips},
    {"RecMode", FirstRun::Fixed, "0"},
    {"AutoStart", FirstRun::NotWritten, "0"},  // the first-run offer decides
    {"ColWidth", FirstRun::NotWritten, kDefaultColumnWidths},
};

struct CheckBoxKey {
    const char* name;
    int SettingValues::*value;
};

// The check boxes in the order they are loaded and saved, in the three runs
// that the repeat toggle and the start-with-Windows entry separate.
constexpr CheckBoxKey kBeforeRepeat[] = {{"OnTop", &SettingValues::onTop}};
constexpr CheckBoxKey kBeforeRunEntry[] = {
    {"SmoothPointer", &SettingValues::smoothPointer}, {"ShowCount", &SettingValues::showCount},
    {"AutoStart", &SettingValues::autoStart},         {"StartMin", &SettingValues::startMin},
    {"WithWindows", &SettingValues::withWindows},
};
constexpr CheckBoxKey kAfterRunEntry[] = {
    {"DYK", &SettingValues::dyk}, {"Enter4Step", &SettingValues::enter4Step}, {"MouseSaver", &SettingValues::mouseSaver}};

std::string Read(App& app, const char* key) { return ReadIni(app, kSettingsSection, key); }
void Write(App& app, const char* key, const std::string& value) { WriteIni(app, kSettingsSection, key, value); }

// A check box holds 0, 1 or 2 (the three-state box); anything else reads as off.
int CheckBoxValue(const std::string& text) {
    double value = Val(text);
    return value == 1 || value == 2 ? static_cast<int>(value) : 0;
}

template <std::size_t N>
void LoadCheckBoxes(App& app, const CheckBoxKey (&keys)[N]) {
    for (const CheckBoxKey& key : keys) app.settings.*key.value = CheckBoxValue(Read(app, key.name));
}

template <std::size_t N>
void SaveCheckBoxes(App& app, const CheckBoxKey (&keys)[N]) {
    for (const CheckBoxKey& key : keys) Write(app, key.name, std::to_string(app.settings.*key.value));
}

// Stores the state with the opposite look, then presses the toggle once so
// that it flips back and draws itself to match.
void LoadRepeatToggle(App& app) {
    bool on = Read(app, "GRepeat") == "1";
    app.settings.repeatState = std::string(on ? "0" : "1");
    PressRepeatToggle(app);
}

// A refused write (no rights under HKEY_LOCAL_MACHINE) passes unnoticed.
void UpdateRunEntry(App& app) {
    if (app.settings.withWindows != 0) {
        app.os.registry.SetString(RegistryRoot::LocalMachine, kRunKey, kRunValueName,
                                  app.programFolder + "\\klickwerk.exe");
    } else {
        app.os.registry.DeleteValue(RegistryRoot::LocalMachine, kRunKey, kRunValueName);
    }
}

}  // namespace

std::string ReadIni(App& app, const std::string& section, const std::string& key, const std::string& file) {
    return app.os.ini.Read(section, key, file.empty() ? app.settingsPath : file);
}

std::int16_t WriteIni(App& app, const std::string& section, const std::string& key, const std::string& value,
                      const std::string& file) {
    return static_cast<std::int16_t>(app.os.ini.Write(section, key, value, file.empty() ? app.settingsPath : file));
}

void WriteFirstRunDefaults(App& app) {
    for (const SettingKey& key : kSettingKeys) {
        if (key.firstRun == FirstRun::Fixed) Write(app, key.name, key.value);
        if (key.firstRun == FirstRun::Today) Write(app, key.name, app.os.clock.FormatShortDate(app.os.clock.Today()));
    }
}

std::int16_t StopKeyFromSetting(const std::string& text) {
    std::int16_t code = 0;
    try {
        code = CInt(Val(text));
    } catch (const RuntimeError&) {
        // A number beyond 16 bits names no key; it counts as unset.
    }
    return code == 0 ? 27 : code;
}

void LoadSet(App& app) {
    Trapped(app, "LoadSet", [&] {
        LoadCheckBoxes(app, kBeforeRepeat);
        LoadRepeatToggle(app);
        LoadCheckBoxes(app, kBeforeRunEntry);
        LoadCheckBoxes(app, kAfterRunEntry);
        app.stopKeyCode = StopKeyFromSetting(Read(app, "StopKey"));
        app.ui.main.SetPanelText(4, StopKeyName(app.stopKeyCode));
        app.ui.main.SetPanelText(5, Read(app, "StepCounter"));
        app.settings.recordIntoSelected = Read(app, "RecMode") == "1";
    });
}

void SaveSet(App& app) {
    Trapped(app, "SaveSet", [&] {
        SaveCheckBoxes(app, kBeforeRepeat);
        Write(app, "GRepeat", app.settings.repeatState);
        SaveCheckBoxes(app, kBeforeRunEntry);
        UpdateRunEntry(app);
        SaveCheckBoxes(app, kAfterRunEntry);
        Write(app, "StepCounter", app.ui.main.PanelText(5));
        Write(app, "Height", std::to_string(CLng(app.ui.main.HeightTwips())));
        Write(app, "ColWidth", Join({app.columnWidths.begin(), app.columnWidths.end()}, ","));
    });
}
