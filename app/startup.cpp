#include "app/startup.h"

#include <optional>

#include "app/about_box.h"
#include "app/init.h"
#include "core/app.h"
#include "core/basic_text.h"
#include "core/error_log.h"
#include "core/settings.h"
#include "platform/win_constants.h"
#include "script/script_file.h"
#include "version.h"

namespace {

constexpr const char* kProductName = "Klickwerk";
constexpr const char* kSwitchMark = " /";
// InitCommonControlsEx: the structure's size and every control class.

std::string AppTitle() {
    return std::string(kProductName) + " v" + std::to_string(KW_VERSION_MAJOR) + "." +
           std::to_string(KW_VERSION_MINOR);
}

// A path given in double quotes (as Explorer passes it) is taken without them.
std::string Unquoted(const std::string& path) {
    if (path.size() >= 2 && path.front() == '"' && path.back() == '"') return path.substr(1, path.size() - 2);
    return path;
}

// Visual styles only where the system draws them: 5.1 or later, themes on,
// common controls 6.
void InitVisualStyles(OsInfo& os) {
    OsVersion version = os.Version();
    // major + minor / 10 >= 5.1, counted in tenths to stay exact.
    bool recentEnough = version.ok && version.major * 10 + version.minor >= 51;
    if (recentEnough && os.IsAppThemed() && os.CommonControlsMajorVersion() >= 6) {
        os.InitCommonControls(win::kInitCommonControlsExSize, win::kIccAllClasses);
    }
}

bool AskForSecondInstance(App& app) {
    std::string question = "There's an instance of " + app.appTitle + " already running.  Create a new instance?";
    return app.ui.boxes.Show(question, app.appTitle, BoxStyle::QuestionYesNo) == BoxAnswer::Yes;
}

void Inform(App& app, const std::string& text, BoxStyle style) { app.ui.boxes.Show(text, app.appTitle, style); }

// Installs the example script as the working copy when it is there.
void InstallExample(App& app, StartupServices& services) {
    Inform(app,
           "Do not use your mouse and keyboard while the script is running.  You may press ESCAPE to stop the "
           "script at any time.",
           BoxStyle::Information);
    services.HideSplash();
    app.firstRunDemo = true;
    std::string example = app.programFolder + "\\Scripts\\FirstRun.kwf";
    if (FileExists(app, example) && app.os.files.Copy(example, app.scriptStorePath)) {
        WriteSetting(app, Setting::AutoStart, "1");
        return;
    }
    WriteSetting(app, Setting::AutoStart, "0");
    Inform(app, "Unable to locate FirstRun.kwf script file.", BoxStyle::Error);
}

void OfferExample(App& app, StartupServices& services) {
    if (ReadSetting(app, Setting::FirstRun) != "1") return;
    std::string question = "This is your first time running " + app.appTitle +
                           ".  Would you like to load 'FirstRun' example script?";
    if (app.ui.boxes.Show(question, app.appTitle, BoxStyle::QuestionYesNo) == BoxAnswer::Yes) {
        InstallExample(app, services);
    } else {
        WriteSetting(app, Setting::AutoStart, "0");
    }
    app.os.clock.Yield();
    WriteFirstRunDefaults(app);
}

void LoadWithoutCommandLine(App& app, StartupServices& services) {
    OfferExample(app, services);
    Init(app, false, services);
    app.ui.main.Show();
    if (!app.firstRunDemo && app.settings.dyk == 1) services.ShowHint();
    services.CheckForUpdates();
    if (app.settings.autoStart == 1) {
        app.autoStarted = true;
        services.StartPlayback();
    }
}

void LoadCommandLineScript(App& app, StartupServices& services, const CommandLine& command) {
    Init(app, true, services);
    app.ui.main.Show();
    if (command.path.empty()) return;
    if (!ReadData(app, command.path, false)) {
        Inform(app, "Failed to load " + command.path + " script file.  Script does not exist/corrupted.",
               BoxStyle::Error);
        return;
    }
    bool repeating = app.settings.repeatState == "1";
    if (repeating == command.noRepeat) PressRepeatToggle(app);
    if (!command.noStart) services.StartPlayback();
}

void OfferErrorLog(App& app) {
    std::optional<std::int64_t> length = app.os.files.Length(app.errorLogPath);
    if (!length || *length == app.errorLogSizeAtStart) return;
    Inform(app,
           app.appTitle + " logged some minor errors during this run.  Please send Error.log to " + kSupportMail +
               ".  Thank you.",
           BoxStyle::Plain);
    app.os.shell.Open(app.errorLogPath, "0", "0", win::kSwShowNormal);
}

}  // namespace

CommandLine SplitCommandLine(const std::string& commandLine) {
    std::vector<std::string> parts = Split(commandLine, kSwitchMark);
    CommandLine result;
    result.path = Unquoted(Trim(parts.front()));
    for (std::size_t i = 1; i < parts.size(); ++i) {
        std::string word = Trim(parts[i]);
        if (word == "nostart") result.noStart = true;
        if (word == "norep") result.noRepeat = true;
    }
    return result;
}

bool MainSub(App& app, StartupServices& services) {
    bool loaded = false;
    Trapped(app, "MainSub", [&] {
        app.appTitle = AppTitle();
        app.programFolder = app.os.os.ProgramFolder();
        app.errorLogPath = app.programFolder + "\\Error.log";
        app.errorLogSizeAtStart = static_cast<long>(app.os.files.Length(app.errorLogPath).value_or(0));
        bool another = app.os.os.OtherInstanceRunning();
        if (another && !AskForSecondInstance(app)) return;
        InitVisualStyles(app.os.os);
        app.settingsPath = app.programFolder + "\\Settings.ini";
        app.scriptStorePath = app.programFolder + "\\Data.dat";
        // A copy killed while it wrote the working copy, the settings or a
        // script left its temporary file; none is being written when this
        // copy runs alone.
        if (!another) {
            for (const char* folder : {"", "\\Scripts"}) app.os.files.RemoveLeftovers(app.programFolder + folder);
        }
        app.closingFlag = false;
        services.ShowSplash(app.appTitle, BuildText());
        services.LoadMainWindow();
        loaded = true;
        app.os.clock.Yield();
        services.CloseSplash();
    });
    return loaded;
}

void MainLoad(App& app, StartupServices& services) {
    Trapped(app, "Main_Load", [&] {
        if (!FileExists(app, app.settingsPath)) {
            Inform(app, "Failed to locate Settings file.  Loading defaults.", BoxStyle::Information);
            WriteSetting(app, Setting::FirstRun, "1");
        }
        std::string commandLine = app.os.os.CommandLine();
        if (Trim(commandLine).empty()) {
            LoadWithoutCommandLine(app, services);
        } else {
            LoadCommandLineScript(app, services, SplitCommandLine(commandLine));
        }
        services.FinishLoad();
    });
}

bool CloseMainWindow(App& app, StartupServices& services) {
    if (!SaveData(app, true)) return false;
    if (app.settings.onTop == 1) app.ui.main.SetTopmost(false);
    app.closingFlag = true;
    services.ReleaseHooks();
    SaveSet(app);
    services.UnloadWindows();
    OfferErrorLog(app);
    return true;
}
