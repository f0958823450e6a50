#pragma once
// frmUpdates, the update window, as the behaviour sees it: the label
// lblDisplay and the buttons cmdDownload, cmdUpdates and cmdClose.
#include <string>

#include "platform/window_system.h"

// What the user does in the window.
class UpdatesEvents {
public:
    virtual ~UpdatesEvents() = default;
    // The window is shown and painted: it fetches what it tells.
    virtual void Loaded() = 0;
    virtual void Download() = 0;     // cmdDownload
    virtual void OpenUpdates() = 0;  // cmdUpdates
    // cmdClose, Esc or the close box.
    virtual void Close() = 0;
};

class UpdatesView {
public:
    virtual ~UpdatesView() = default;
    // Shows the window over the main window with `heading` as its caption and
    // cmdDownload disabled, calls events.Loaded() once it shows, and returns
    // when it is closed; meanwhile the user's actions reach `events`.
    virtual void Run(const std::string& heading, UpdatesEvents& events) = 0;
    virtual void SetDisplay(const std::string& text) = 0;
    virtual void SetDownloadEnabled(bool enabled) = 0;
    // The window itself, for the system's calls on it.
    virtual WindowHandle Window() const = 0;
    // Ends Run.
    virtual void Close() = 0;
};
