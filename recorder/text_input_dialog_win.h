#pragma once
// frmTextInput on screen: a modal window over the main window with txtSend,
// the three reference labels, cmdOK, cmdCancel and cmdRetHwnd, and the
// picker panel frahWNDGet, in which the user drags the target picDrag onto
// any window. What the actions do is the behaviour's (recorder/text_input.h).
#include <array>
#include <string>

#include "core/text_input_view.h"
#include "platform/base_window_win.h"
#include "platform/owned_win.h"

// picDrag: shows the target and carries it while the button is held; the
// pointer is captured so the release is seen over any window.
class WindowPickerWin : public BaseWindow<WindowPickerWin> {
public:
    bool Create(HWND parent, int id);
    void SetDpi(int dpi);
    LRESULT HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

private:
    void Paint();
    void EndDrag(bool dropped);

    OwnedIcon full_;
    OwnedIcon empty_;
    int iconSize_ = 32;
    bool dragging_ = false;
};

// frahWNDGet: an opaque panel laid over the reference while a window is picked.
class PickerPanelWin : public BaseWindow<PickerPanelWin> {
public:
    bool Create(HWND dialog);
    void Layout(int dpi, HFONT font);
    LRESULT HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

private:
    HWND group_ = nullptr;
    HWND hint_ = nullptr;
    HWND cancel_ = nullptr;  // cmdHwndGetCancel
    WindowPickerWin picker_;
};

class TextInputDialogWin : public BaseWindow<TextInputDialogWin>, public TextInputView {
public:
    void SetOwner(HWND owner) { owner_ = owner; }

    void Run(const std::array<std::string, 3>& reference, const std::string& text,
             TextInputEvents& events) override;
    std::string Text() const override;
    void SetText(const std::string& text) override;
    void SetPickerShown(bool shown) override;
    bool PickerShown() const override;
    void Close() override { open_ = false; }

    LRESULT HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

private:
    bool Create(const std::array<std::string, 3>& reference);
    void Layout();
    void OnCommand(int id, int code);

    HWND owner_ = nullptr;
    TextInputEvents* events_ = nullptr;
    bool open_ = false;
    int dpi_ = 96;
    OwnedFont font_;
    HWND text_ = nullptr;  // txtSend
    std::array<HWND, 3> labels_{};
    HWND ok_ = nullptr;
    HWND cancel_ = nullptr;
    HWND pick_ = nullptr;  // cmdRetHwnd
    PickerPanelWin panel_;
};
