#include "core/settings.h"

#include <array>

#include "core/app.h"
#include "core/basic_text.h"
#include "core/error_log.h"
#include "core/runtime_error.h"
#include "core/vocabulary.h"

namespace {

using enum SettingForm;

// Indexed by Setting.
constexpr std::array<SettingKey, 18> kSettingKeys = {{
    {"FirstRun", Flag, FirstRun::Fixed, "0", nullptr},
    {"OnTop", CheckBox, FirstRun::Fixed, "0", &SettingValues::onTop},
    {"GRepeat", Flag, FirstRun::Fixed, "0", nullptr},
    {"SmoothPointer", CheckBox, FirstRun::Fixed, "0", &SettingValues::smoothPointer},
    {"ShowCount", CheckBox, FirstRun::Fixed, "1", &SettingValues::showCount},
    {"AutoStart", CheckBox, FirstRun::NotWritten, "0", &SettingValues::autoStart},  // the first-run offer decides
    {"StartMin", CheckBox, FirstRun::Fixed, "0", &SettingValues::startMin},
    {"WithWindows", CheckBox, FirstRun::Fixed, "0", &SettingValues::withWindows},
    {"DYK", CheckBox, FirstRun::Fixed, "1", &SettingValues::dyk},
    {"Enter4Step", CheckBox, FirstRun::Fixed, "0", &SettingValues::enter4Step},
    {"MouseSaver", CheckBox, FirstRun::Fixed, "0", &SettingValues::mouseSaver},
    {"StopKey", Number, FirstRun::Fixed, "27", nullptr},
    {"StepCounter", Number, FirstRun::Fixed, "0", nullptr},
    {"LastCheck", Date, FirstRun::Today, "", nullptr},
    {"Height", Number, FirstRun::Fixed, "6610", nullptr},
    {"RecMode", Flag, FirstRun::Fixed, "0", nullptr},
    {"ColWidth", List, FirstRun::NotWritten, "800, 600, 600, 1500, 1125, 700, 700, 800", nullptr},
    // The update server's folder, for a mirror; the program reads it and never writes it.
    {"UpdateServer", Text, FirstRun::NotWritten, "", nullptr},
}};

// A check box holds 0, 1 or 2 (the three-state box); anything else reads as off.
int CheckBoxValue(const std::string& text) {
    double value = Val(text);
    return value == 1 || value == 2 ? static_cast<int>(value) : 0;
}

// Stores the state with the opposite look, then presses the toggle once so
// that it flips back and draws itself to match.
void LoadRepeatToggle(App& app) {
    bool on = ReadSetting(app, Setting::GRepeat) == "1";
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

const SettingKey& KeyOf(Setting setting) { return kSettingKeys[static_cast<std::size_t>(setting)]; }
std::span<const SettingKey> SettingKeys() { return kSettingKeys; }

std::string ReadIni(App& app, const std::string& section, const std::string& key, const std::string& file) {
    return app.os.ini.Read(section, key, file.empty() ? app.settingsPath : file);
}

std::int16_t WriteIni(App& app, const std::string& section, const std::string& key, const std::string& value,
                      const std::string& file) {
    return static_cast<std::int16_t>(app.os.ini.Write(section, key, value, file.empty() ? app.settingsPath : file));
}

std::string ReadSetting(App& app, Setting setting) { return ReadIni(app, kSettingsSection, KeyOf(setting).name); }

void WriteSetting(App& app, Setting setting, const std::string& value) {
    WriteIni(app, kSettingsSection, KeyOf(setting).name, value);
}

void WriteFirstRunDefaults(App& app) {
    for (const SettingKey& key : kSettingKeys) {
        if (key.firstRun == FirstRun::Fixed) WriteIni(app, kSettingsSection, key.name, key.defaultValue);
        if (key.firstRun == FirstRun::Today) {
            WriteIni(app, kSettingsSection, key.name, app.os.clock.FormatShortDate(app.os.clock.Today()));
        }
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
        for (const SettingKey& key : SettingKeys()) {
            if (key.checkBox) app.settings.*key.checkBox = CheckBoxValue(ReadIni(app, kSettingsSection, key.name));
            if (&key == &KeyOf(Setting::GRepeat)) LoadRepeatToggle(app);
        }
        app.stopKeyCode = StopKeyFromSetting(ReadSetting(app, Setting::StopKey));
        app.ui.main.SetPanelText(4, StopKeyName(app.stopKeyCode));
        app.ui.main.SetPanelText(5, ReadSetting(app, Setting::StepCounter));
        app.settings.recordIntoSelected = ReadSetting(app, Setting::RecMode) == "1";
    });
}

void SaveSet(App& app) {
    Trapped(app, "SaveSet", [&] {
        for (const SettingKey& key : SettingKeys()) {
            if (key.checkBox) WriteIni(app, kSettingsSection, key.name, std::to_string(app.settings.*key.checkBox));
            if (&key == &KeyOf(Setting::GRepeat)) WriteSetting(app, Setting::GRepeat, app.settings.repeatState);
            if (&key == &KeyOf(Setting::WithWindows)) UpdateRunEntry(app);
        }
        WriteSetting(app, Setting::StepCounter, app.ui.main.PanelText(5));
        WriteSetting(app, Setting::Height, std::to_string(CLng(app.ui.main.HeightTwips())));
        WriteSetting(app, Setting::ColWidth, Join({app.columnWidths.begin(), app.columnWidths.end()}, ","));
    });
}

void PressRepeatToggle(App& app) {
    app.settings.repeatState = app.settings.repeatState == "1" ? "0" : "1";
    app.ui.main.ShowRepeatState(app.settings.repeatState == "1");
}
