#pragma once
// The window of frmSettings: a borderless pop-up tool window beside the main
// window, titled "Settings", holding the frame fraOptions with the option check
// boxes (Check) and the push buttons (xpButton), each with its tool tip.
// Sizes are twips shown at the window's DPI; what the panel does is the
// behaviour's (settings_panel.h).
#include <array>
#include <functional>

#include "controls/check_box_win.h"
#include "controls/xp_button_win.h"
#include "core/settings_panel_view.h"
#include "platform/base_window_win.h"
#include "platform/owned_win.h"
#include "settings_ui/settings_panel.h"

class SettingsPanelWin : public BaseWindow<SettingsPanelWin>, public SettingsPanelView {
public:
    // Creates the hidden panel at the DPI of the main window.
    bool Create(HWND mainWindow);

    // A click on an option's check box (mouse or Space), a button's command,
    // and tmrKeepAttached's tick.
    std::function<void(Setting key)> onOptionClick;
    std::function<void(PanelCommand command)> onCommand;
    std::function<void()> onKeepAttachedTick;

    void SetOption(Setting key, int value) override;
    int Option(Setting key) const override;
    void SetVisible(bool visible) override;
    bool Visible() const override;
    void SetKeepAttached(bool enabled) override;
    bool KeepAttached() const override { return keepAttached_; }
    Rect Bounds() const override;
    void MoveTo(int left, int top) override;
    void SetWidth(double twips) override;
    double FrameWidth() const override;
    void SetFrameLeft(double twips) override;

    LRESULT HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

private:
    // fraOptions: holds the controls and hands their commands to the panel.
    class OptionsFrame : public BaseWindow<OptionsFrame> {
    public:
        bool Create(HWND panel);
        LRESULT HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);
    };

    void CreateControls();
    void CreateToolTips();
    void ApplyDpi(int dpi);
    double NeededFrameWidth() const;
    void Layout();
    int Px(double twips) const;
    void OnCommand(WPARAM wParam);
    void OnActivate(WPARAM wParam);

    OptionsFrame frame_;
    HWND group_ = nullptr;
    std::array<CheckBoxWin, kPanelOptions.size()> boxes_;
    std::array<XpButtonWin, kPanelButtons.size()> buttons_;
    HWND tips_ = nullptr;
    OwnedFont font_;
    int dpi_ = 96;
    double frameLeft_ = kOptionsFrameLeft;  // twips
    double frameWidth_ = 0;                 // twips
    bool keepAttached_ = false;
    HWND focus_ = nullptr;  // the control that gets the focus back when the panel is activated
};
