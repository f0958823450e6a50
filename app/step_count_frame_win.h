#pragma once
// The step-count frame fraSteps: shown in the middle of the main window, in
// the grid frame's place, while the user types how many steps the grid is to
// have into txtSteps; cmdSteps(0) accepts, cmdSteps(1) cancels. What a count
// does is the behaviour's (editing/step_count.h); this is its view.
#include <functional>
#include <string>

#include "app/panel_keys_win.h"
#include "core/step_count_view.h"
#include "platform/base_window_win.h"

class StepCountFrameWin : public BaseWindow<StepCountFrameWin>, public StepCountView {
public:
    StepCountFrameWin() = default;

    // Creates the hidden frame and its controls inside `parent`.
    bool Create(HWND parent);
    void SetFont(HFONT font);
    // Sizes the frame and its controls for `dpi`, centred in the parent's client area.
    void Place(int dpi);
    void SetVisible(bool visible);
    bool Visible() const;

    std::string Text() const override;
    void SetText(const std::string& text) override;
    void SelectAll() override;
    void Centre() override { Place(dpi_); }

    // cmdSteps(0) and cmdSteps(1).
    std::function<void()> onAccept;
    std::function<void()> onCancel;
    // txtSteps's text changed, by typing or by the program.
    std::function<void()> onChange;
    // Return or Escape pressed in txtSteps; true swallows it.
    std::function<bool(int keyCode)> onKey;

    LRESULT HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

private:
    void OnCommand(WPARAM wParam);

    HWND group_ = nullptr;
    HWND label_ = nullptr;
    HWND text_ = nullptr;    // txtSteps
    HWND accept_ = nullptr;  // cmdSteps(0)
    HWND cancel_ = nullptr;  // cmdSteps(1)
    PanelKeys keys_;         // Return and Escape in txtSteps
    int dpi_ = 96;
};
