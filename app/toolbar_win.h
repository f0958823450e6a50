#pragma once
// The toolbar TB of the main window: the six buttons of kToolbarButtons with
// their pictures (lstNormal, lstDisabled, lstHot) and the help button's
// drop-down menu. The main window creates it, forwards WM_COMMAND and
// WM_NOTIFY to it and gets every click back as a button or menu key.
#include <functional>
#include <string>

#include "core/main_view.h"
#include "platform/owned_win.h"

#include <commctrl.h>

class ToolbarWin {
public:
    ToolbarWin() = default;
    ~ToolbarWin();
    ToolbarWin(const ToolbarWin&) = delete;
    ToolbarWin& operator=(const ToolbarWin&) = delete;

    // Creates TB along the top of `parent`, sized for the parent's DPI.
    bool Create(HWND parent);
    HWND Handle() const { return hwnd_; }
    // Height in pixels, for laying out what lies below.
    int Height() const;
    // The parent's WM_SIZE: keeps the toolbar along its top edge.
    void OnParentSize();
    // The parent's DPI and font changed: new pictures, captions in `font`
    // (which stays the parent's).
    void OnDpiChanged(int dpi, HFONT font);

    void SetEnabled(const std::string& key, bool enabled);
    bool IsEnabled(const std::string& key) const;
    // For MainView::SetEnabled / IsEnabled: SetEnabled answers false when
    // `control` is no toolbar button.
    bool IsToolbarControl(Control control) const;
    bool SetEnabled(Control control, bool enabled);
    bool IsEnabled(Control control) const;

    // The parent's WM_COMMAND; true when it came from a toolbar button.
    bool OnCommand(WPARAM wParam, LPARAM lParam);
    // The parent's WM_NOTIFY: the help drop-down and the tool tips. True when
    // handled, with the message's result in `result`.
    bool OnNotify(const NMHDR* header, LRESULT& result);

    // A click on a button or help-menu entry, by key ("save" ... "exit", "h1", "h2").
    std::function<void(const std::string& key)> onClick;

private:
    void SetPictures(int dpi);
    void ShowHelpMenu(int commandId);
    void Click(const std::string& key);

    HWND hwnd_ = nullptr;
    OwnedImageList lstNormal_;
    OwnedImageList lstDisabled_;
    OwnedImageList lstHot_;
};
