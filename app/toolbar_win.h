#pragma once
// The toolbar TB of the main window: the six buttons of kToolbarButtons with
// their pictures (lstNormal, lstDisabled, lstHot) and the help button's
// drop-down menu. The main window creates it, forwards WM_COMMAND and
// WM_NOTIFY to it and gets every click back as a button or menu key.
#include <functional>
#include <string>

#include "app/main_view.h"
#include "platform/win32.h"

#include <commctrl.h>

class Toolbar {
public:
    using ClickHandler = std::function<void(const std::string& key)>;

    explicit Toolbar(ClickHandler onClick) : onClick_(std::move(onClick)) {}
    ~Toolbar();
    Toolbar(const Toolbar&) = delete;
    Toolbar& operator=(const Toolbar&) = delete;

    // Creates TB along the top of `parent`, sized for the parent's DPI.
    bool Create(HWND parent);
    HWND Handle() const { return hwnd_; }
    // Height in pixels, for laying out what lies below.
    int Height() const;
    // The parent's WM_SIZE: keeps the toolbar along its top edge.
    void OnParentSize();
    // The parent's WM_DPICHANGED: new pictures and font for the new DPI.
    void OnDpiChanged();

    void SetEnabled(const std::string& key, bool enabled);
    bool IsEnabled(const std::string& key) const;
    // For MainView::SetEnabled: false when `control` is no toolbar button.
    bool SetEnabled(Control control, bool enabled);

    // The parent's WM_COMMAND; true when it came from a toolbar button.
    bool OnCommand(WPARAM wParam, LPARAM lParam);
    // The parent's WM_NOTIFY: the help drop-down and the tool tips. True when
    // handled, with the message's result in `result`.
    bool OnNotify(const NMHDR* header, LRESULT& result);

private:
    void ApplyDpi();
    void ShowHelpMenu(int commandId);
    int CommandIdOf(const std::string& key) const;

    ClickHandler onClick_;
    HWND hwnd_ = nullptr;
    HIMAGELIST lstNormal_ = nullptr;
    HIMAGELIST lstDisabled_ = nullptr;
    HIMAGELIST lstHot_ = nullptr;
    HFONT font_ = nullptr;
};
