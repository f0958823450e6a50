#pragma once
// The about box fraAbout: a frame inside the main window with the title and
// build labels, the e-mail and web links, the logo and cmdHideAbout. The
// slide itself is the behaviour's (app/about_box.h); this is its view.
#include <functional>

#include "app/about_box.h"
#include "platform/base_window_win.h"
#include "platform/owned_win.h"

class AboutFrameWin : public AboutView, public BaseWindow<AboutFrameWin> {
public:
    AboutFrameWin() = default;
    ~AboutFrameWin() override;

    // Creates the hidden frame, waiting above `parent`'s inner area.
    bool Create(HWND parent);
    // The parent's DPI and font changed; `font` stays the parent's.
    void OnDpiChanged(int dpi, HFONT font);

    // A click on the e-mail or web label, and on cmdHideAbout.
    std::function<void(AboutLink)> onLink;
    std::function<void()> onHide;

    void SetTexts(const std::string& title, const std::string& build) override;
    double FrameWidth() const override;
    double FrameHeight() const override;
    double InnerWidth() const override;
    double InnerHeight() const override;
    void MoveTo(double left, double top) override;
    double Top() const override { return top_; }
    void SetVisible(bool visible) override;
    bool Visible() const override;

    LRESULT HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

private:
    int Pixels(double twips) const;
    void CreateFonts(HFONT base);
    void Layout();
    void Paint();
    LRESULT ColourLabel(HDC dc, HWND label);
    void SetHoveredLink(HWND link);
    bool SetCursorFor(HWND child);
    void CheckHover();
    void OnCommand(WPARAM wParam, LPARAM lParam);

    int dpi_ = 96;
    double left_ = 0;
    double top_ = 0;
    HWND title_ = nullptr;
    HWND build_ = nullptr;
    HWND mail_ = nullptr;
    HWND web_ = nullptr;
    HWND cmdHideAbout_ = nullptr;
    HWND hoveredLink_ = nullptr;
    HFONT font_ = nullptr;  // the parent's
    OwnedFont titleFont_;
    OwnedFont linkFont_;
    OwnedIcon logo_;
    OwnedBrush background_;
};
