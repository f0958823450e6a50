#pragma once
// The stop-key panel fraStopKey: shown in the place of the grid frame while
// the user picks a new stop key from cmbStopKeys; cmdStopKey(0) accepts the
// choice, cmdStopKey(1) closes the panel. What a choice does is the
// behaviour's (app/stop_key_panel.h); this is its view.
#include <functional>
#include <string>

#include "app/layout.h"
#include "app/panel_keys_win.h"
#include "platform/base_window_win.h"

class StopKeyFrameWin : public BaseWindow<StopKeyFrameWin> {
public:
    StopKeyFrameWin() = default;

    // Creates the hidden frame and its controls inside `parent`.
    bool Create(HWND parent);
    // cmbStopKeys, which the main window fills.
    HWND Combo() const { return combo_; }
    // Takes the grid frame's place, in the parent's client pixels.
    void Move(const PixelRect& area, int dpi);
    void SetFont(HFONT font);
    // Showing the panel puts the keyboard in the list, ready for Return.
    void SetVisible(bool visible);
    bool Visible() const;

    // cmdStopKey(0) with the chosen name, and cmdStopKey(1).
    std::function<void(const std::string& chosenName)> onAccept;
    std::function<void()> onClose;
    // A key pressed in cmbStopKeys with the chosen name; true swallows it.
    std::function<bool(int keyCode, const std::string& chosenName)> onListKey;

    LRESULT HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

private:
    bool OnComboKey(int keyCode);
    std::string ChosenName() const;
    void OnCommand(WPARAM wParam);

    HWND group_ = nullptr;
    HWND label_ = nullptr;
    HWND combo_ = nullptr;
    HWND accept_ = nullptr;  // cmdStopKey(0)
    HWND close_ = nullptr;   // cmdStopKey(1)
    PanelKeys keys_;  // Return and Escape in cmbStopKeys
};
