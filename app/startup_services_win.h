#pragma once
// What start-up asks of the Windows layer: the splash window, the creation
// of the main window (which runs Main_Load) and the calls other parts answer.
#include "app/program_parts_win.h"
#include "app/splash_win.h"
#include "app/startup.h"
#include "core/app.h"

class StartupServicesWin : public StartupServices {
public:
    StartupServicesWin(App& app, WinViews& windows) : app_(app), windows_(windows) {}

    void ShowSplash(const std::string& title, const std::string& buildText) override;
    void HideSplash() override;
    void CloseSplash() override;
    void LoadMainWindow() override;
    void FinishLoad() override;
    void ShowHint() override;
    void CheckForUpdates() override;
    void StartPlayback() override;
    void LoadHookLibrary() override;
    void ReleaseHooks() override;
    void UnloadWindows() override;

private:
    App& app_;
    WinViews& windows_;
    MainWindow& main_ = windows_.main;
    SplashWindow splash_;
};
