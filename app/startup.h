#pragma once
// The program's entry and exit: MainSub, the main window's load (Main_Load)
// and its close.
#include <string>

struct App;

// What start-up asks of the windows layer, and the start-up calls that other
// subsystems answer (hint panel, update reminder, playback, hook library).
class StartupServices {
public:
    virtual ~StartupServices() = default;
    virtual void ShowSplash(const std::string& title, const std::string& buildText) = 0;
    virtual void HideSplash() = 0;
    virtual void CloseSplash() = 0;
    // Creates the main window; creating it runs MainLoad.
    virtual void LoadMainWindow() = 0;
    // Sets the main window's custom pointer and enables tmrColResize.
    virtual void FinishLoad() = 0;
    virtual void ShowHint() = 0;
    virtual void CheckForUpdates() = 0;
    virtual void StartPlayback() = 0;
    virtual void LoadHookLibrary() = 0;
    virtual void ReleaseHooks() = 0;
    // Unloads every other open window of the program.
    virtual void UnloadWindows() = 0;
};

struct CommandLine {
    std::string path;
    bool noStart = false;
    bool noRepeat = false;
};

// Splits at the first " /": the trimmed part before it is the script path.
CommandLine SplitCommandLine(const std::string& commandLine);

// Returns false when the program must end at once (a second instance declined).
bool MainSub(App& app, StartupServices& services);
void MainLoad(App& app, StartupServices& services);
// The close sequence; false cancels the close (the working copy could not be saved).
bool CloseMainWindow(App& app, StartupServices& services);
