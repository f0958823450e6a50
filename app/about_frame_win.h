#pragma once
// The about box fraAbout: a frame inside the main window with the title and
// build labels, the e-mail and web links, the logo and cmdHideAbout. The
// slide itself is the behaviour's (app/about_box.h); this is its view.
#include "app/about_box.h"
#include "app/base_window_win.h"

struct App;

class AboutFrame : public AboutView, public BaseWindow<AboutFrame> {
public:
    AboutFrame() = default;
    ~AboutFrame() override;

    // Creates the hidden frame above `parent`'s inner area; clicks go to `app`.
    bool Create(HWND parent, App& app);
    // The parent's WM_DPICHANGED.
    void OnDpiChanged();

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
    void CreateFonts();
    void DeleteFonts();
    void Layout();
    void Paint();
    LRESULT ColourLabel(HDC dc, HWND label);
    bool SetCursorFor(HWND child);
    void OnCommand(WPARAM wParam, LPARAM lParam);

    App* app_ = nullptr;
    int dpi_ = 96;
    double left_ = 0;
    double top_ = 0;
    HWND title_ = nullptr;
    HWND build_ = nullptr;
    HWND mail_ = nullptr;
    HWND web_ = nullptr;
    HWND cmdHideAbout_ = nullptr;
    HWND hoveredLink_ = nullptr;
    HFONT font_ = nullptr;
    HFONT titleFont_ = nullptr;
    HFONT linkFont_ = nullptr;
    HICON logo_ = nullptr;
    HBRUSH background_ = nullptr;
};
