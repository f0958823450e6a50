#pragma once
// The hint panel fraDYK: a frame over the main window's grid with the
// caption "Hint: N", the hint lblDYK, chkDYK and the buttons cmdDYKPrev,
// cmdDYKNext and cmdDYKHide. Which hint it shows is the behaviour's
// (app/hints.h); this is its view.
#include <functional>
#include <string>

#include "core/hint_view.h"
#include "platform/base_window_win.h"

class HintFrameWin : public HintView, public BaseWindow<HintFrameWin> {
public:
    // Creates the hidden frame inside `parent`.
    bool Create(HWND parent);
    // The parent's DPI and font changed; `font` stays the parent's.
    void OnDpiChanged(int dpi, HFONT font);

    // cmdDYKPrev, cmdDYKNext, cmdDYKHide and a click on chkDYK.
    std::function<void()> onPrevious;
    std::function<void()> onNext;
    std::function<void()> onHide;
    std::function<void()> onDontShowChanged;

    void SetTexts(const std::string& caption, const std::string& hint) override;
    std::string Caption() const override;
    std::string Hint() const override;
    void SetDontShow(bool checked) override;
    bool DontShow() const override;
    void Centre() override;
    void SetVisible(bool visible) override;
    bool Visible() const override;

    LRESULT HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

private:
    void Layout();
    void OnCommand(WPARAM wParam);

    int dpi_ = 96;
    HWND group_ = nullptr;
    HWND caption_ = nullptr;
    HWND hint_ = nullptr;      // lblDYK
    HWND dontShow_ = nullptr;  // chkDYK
    HWND previous_ = nullptr;  // cmdDYKPrev
    HWND next_ = nullptr;      // cmdDYKNext
    HWND hide_ = nullptr;      // cmdDYKHide
};
