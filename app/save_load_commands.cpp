#include "app/save_load_commands.h"

#include <cstdio>

#include "app/dialog_flags.h"
#include "core/app.h"
#include "core/basic_text.h"
#include "core/error_log.h"
#include "core/runtime_error.h"
#include "core/status_line.h"
#include "script/script_file.h"
#include "script/step_grid.h"

namespace {

constexpr const char* kScriptFilter = "Klickwerk CFG file|*.kwf|";
constexpr const char* kLoadFilter = "Klickwerk CFG file|*.kwf|All Files|*.*";

std::string ScriptsFolder(const App& app) { return app.programFolder + "\\Scripts\\"; }

// The three characters before the last four, Mid(name, Len(name) - 6, 3):
// a name shorter than seven characters has no such position.
std::string CounterText(const std::string& name) {
    if (name.size() < 7) RaiseInvalidCall();
    return name.substr(name.size() - 7, 3);
}

std::string ThreeDigits(long number) {
    char text[24];
    std::snprintf(text, sizeof text, "%03ld", number);
    return text;
}

std::string WithScriptExtension(const std::string& path) {
    std::string tail = path.size() > 4 ? path.substr(path.size() - 4) : path;
    return Lower(tail) == ".kwf" ? path : path + ".kwf";
}

std::string NameWithoutFolder(const std::string& path) { return path.substr(path.find_last_of('\\') + 1); }

std::string FirstLine(const std::string& text) { return text.substr(0, text.find_first_of("\r\n")); }

// Writes through a temporary file beside `to`, so a failed copy leaves a
// file that was already there whole.
void CopyReplacing(App& app, const std::string& data, const std::string& to) {
    if (!app.os.files.WriteAtomically(to, data)) throw RuntimeError(errors::kPathAccessError, "Path/File access error");
}

std::string ReadWhole(App& app, const std::string& path) {
    std::optional<std::string> data = app.os.files.ReadAll(path);
    if (!data) throw RuntimeError(errors::kPathAccessError, "Path/File access error");
    return *data;
}

DialogOptions ScriptDialog(const App& app, const std::string& title, const std::string& filter) {
    DialogOptions options;
    options.title = title;
    options.filter = filter;
    options.filterIndex = 1;
    options.initialFolder = ScriptsFolder(app);
    options.defaultExtension = "*.kwf";
    return options;
}

void SaveTo(App& app, const std::string& chosen) {
    ShowStatus(app, "Saving...  Please wait.");
    CopyReplacing(app, ReadWhole(app, app.scriptStorePath), WithScriptExtension(chosen));
    ShowStatus(app, "Saved successfully.");
}

void LoadFrom(App& app, const std::string& path) {
    if (app.os.files.Length(path).value_or(0) == 0) {
        ShowStatus(app, NameWithoutFolder(path) + " is empty.", true, true);
        return;
    }
    ShowStatus(app, "Loading... Please wait.");
    std::string data = ReadWhole(app, path);
    if (FirstLine(data).find("||") == std::string::npos) {
        ShowStatus(app, "Load failed.  Incorrect contents.", true, true);
        return;
    }
    CopyReplacing(app, data, app.scriptStorePath);
    app.ui.grid.Clear();
    ReadData(app, "", false);
    ShowStatus(app, "Loaded successfully.");
}

}  // namespace

std::string ProposeScriptName(const std::vector<std::string>& names) {
    long number = 0;
    for (const std::string& name : names) {
        std::string counter = CounterText(name);
        if (!IsNumeric(counter)) {
            number = 0;
            continue;
        }
        double value = TextToDouble(counter);
        if (IntPart(value) > number) number = CLng(value);
    }
    return "Klickwerk" + ThreeDigits(number + 1) + ".kwf";
}

void SaveCommand(App& app) {
    SaveData(app, true);
    if (app.ui.grid.RowCount() == 0) {
        ShowStatus(app, "Nothing to save.", true, true);
        return;
    }
    app.ui.main.SetEnabled(Control::ToolSave, false);
    DialogOptions options = ScriptDialog(app, "Save Configuration File (Script File)", kScriptFilter);
    options.fileName = ProposeScriptName(app.os.files.List(ScriptsFolder(app) + "*.kwf"));
    options.overwritePrompt = true;
    if (std::optional<std::string> chosen = SaveDLG(app, options)) SaveTo(app, *chosen);
    app.ui.main.SetEnabled(Control::ToolSave, true);
}

void LoadCommand(App& app) {
    app.ui.main.SetEnabled(Control::ToolLoad, false);
    DialogOptions options = ScriptDialog(app, "Load Configuration File (Script File)", kLoadFilter);
    options.fileMustExist = true;
    std::optional<std::string> chosen = LoadDLG(app, options);
    if (chosen && FileExists(app, *chosen)) LoadFrom(app, *chosen);
    app.ui.main.SetEnabled(Control::ToolLoad, true);
}
