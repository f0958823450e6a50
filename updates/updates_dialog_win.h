#pragma once
// frmUpdates on screen: a modal window over the main window with the label
// lblDisplay and the push buttons cmdDownload, cmdUpdates and cmdClose. What
// they do is the behaviour's (updates/update_check.h).
#include <string>

#include "controls/xp_button_win.h"
#include "core/updates_view.h"
#include "platform/base_window_win.h"
#include "platform/owned_win.h"

class UpdatesDialogWin : public BaseWindow<UpdatesDialogWin>, public UpdatesView {
public:
    void SetOwner(HWND owner) { owner_ = owner; }

    void Run(const std::string& heading, UpdatesEvents& events) override;
    void SetDisplay(const std::string& text) override;
    void SetDownloadEnabled(bool enabled) override;
    WindowHandle Window() const override { return reinterpret_cast<WindowHandle>(hwnd_); }
    void Close() override { open_ = false; }

    LRESULT HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

private:
    bool Create(const std::string& heading);
    void Layout();
    void OnCommand(int id);

    HWND owner_ = nullptr;
    UpdatesEvents* events_ = nullptr;
    bool open_ = false;
    OwnedFont font_;
    HWND display_ = nullptr;  // lblDisplay
    XpButtonWin download_;    // cmdDownload
    XpButtonWin updates_;     // cmdUpdates
    XpButtonWin close_;       // cmdClose
};
