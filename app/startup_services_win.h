#pragma once
// What start-up asks of the Windows layer: the splash window, the creation
// of the main window (which runs Main_Load) and the calls other parts answer.
#include "app/file_dialogs_win.h"
#include "app/main_window_win.h"
#include "app/message_boxes_win.h"
#include "app/splash_win.h"
#include "app/startup.h"
#include "core/app.h"

class StartupServicesWin : public StartupServices {
public:
    StartupServicesWin(App& app, MainWindow& main, MessageBoxesWin& boxes, FileDialogsWin& dialogs)
        : app_(app), main_(main), boxes_(boxes), dialogs_(dialogs) {}

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
    MainWindow& main_;
    MessageBoxesWin& boxes_;
    FileDialogsWin& dialogs_;
    SplashWindow splash_;
};
