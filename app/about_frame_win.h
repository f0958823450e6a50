#pragma once
// fraAbout: the about box, a frame inside the main window that slides in
// from the top. It shows the icon, the title and build labels, the mail and
// web links and the button cmdHideAbout.
#include <functional>
#include <string>

#include "app/about_box.h"
#include "app/base_window_win.h"

class AboutFrameWin : public BaseWindow<AboutFrameWin>, public AboutView {
public:
    ~AboutFrameWin();
    bool Create(HWND parent);
    // Sizes and fonts for the parent's new DPI.
    void OnDpiChanged(int dpi, HFONT font);

    std::function<void(AboutLink)> onLink;
    std::function<void()> onHide;

    void SetTexts(const std::string& title, const std::string& build) override;
    double FrameWidth() const override;
    double FrameHeight() const override;
    double InnerWidth() const override;
    double InnerHeight() const override;
    void MoveTo(double left, double top) override;
    double Top() const override;
    void SetVisible(bool visible) override;
    bool Visible() const override;

    LRESULT HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

private:
    RECT LinkRect(AboutLink link) const;
    bool LinkAt(POINT point, AboutLink& link) const;
    void Paint(HDC dc);
    void ReleaseFonts();

    HWND hideButton_ = nullptr;
    HFONT font_ = nullptr;  // the main window's, not owned
    HFONT titleFont_ = nullptr;
    HFONT linkFont_ = nullptr;
    HICON icon_ = nullptr;
    std::string title_;
    std::string build_;
    int dpi_ = 96;
};
