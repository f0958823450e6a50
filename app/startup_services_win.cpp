#include "app/startup_services_win.h"

#include <commctrl.h>

#include <stdexcept>

#include "app/hints.h"
#include "app/main_timers.h"
#include "platform/message_pump_win.h"
#include "recorder/input_hook.h"
#include "updates/update_check.h"

namespace {
// The window classes the main window is made of. Start-up initialises every
// class only where visual styles are in use; these are needed either way.
constexpr DWORD kMainWindowClasses = ICC_LISTVIEW_CLASSES | ICC_BAR_CLASSES | ICC_STANDARD_CLASSES;
}  // namespace

void StartupServicesWin::ShowSplash(const std::string& title, const std::string& buildText) {
    splash_.Show(title, buildText);
    windows_.boxes.SetSplash(splash_.Handle());
}

void StartupServicesWin::HideSplash() { splash_.Hide(); }

void StartupServicesWin::CloseSplash() { splash_.Close(); }

void StartupServicesWin::LoadMainWindow() {
    INITCOMMONCONTROLSEX classes{sizeof(INITCOMMONCONTROLSEX), kMainWindowClasses};
    InitCommonControlsEx(&classes);
    if (!main_.Create()) throw std::runtime_error("The main window could not be created");
    // Boxes and dialogs opened from now on belong to the main window.
    windows_.boxes.SetOwner(main_.Handle());
    windows_.dialogs.SetOwner(main_.Handle());
    windows_.textInput.SetOwner(main_.Handle());
    windows_.updates.SetOwner(main_.Handle());
    AddKeyboardNavigationWindow(main_.Handle());
    if (windows_.settingsPanel.Create(main_.Handle())) AddKeyboardNavigationWindow(windows_.settingsPanel.Handle());
    CreateMainTimers(app_);
    MainLoad(app_, *this);
}

void StartupServicesWin::FinishLoad() { main_.SetTimer(Timer::ColResize, true); }

void StartupServicesWin::ShowHint() { ShowHintPanel(app_); }

void StartupServicesWin::CheckForUpdates() { ::CheckForUpdates(app_); }

void StartupServicesWin::StartPlayback() {
    // The splash stays up while the main window loads; it must not stand in
    // the way of the pointer once the script plays.
    splash_.Hide();
    main_.Click(Control::Start);
}

void StartupServicesWin::LoadHookLibrary() { ::LoadHookLibrary(app_); }

void StartupServicesWin::ReleaseHooks() { ReleaseHookLibrary(app_); }

// The settings panel is a window of its own: it goes with the main window.
void StartupServicesWin::UnloadWindows() {
    splash_.Close();
    windows_.settingsPanel.SetKeepAttached(false);
    windows_.settingsPanel.SetVisible(false);
}
