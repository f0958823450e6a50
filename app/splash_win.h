#pragma once
// The splash window shown while the main window loads: no frame, centred,
// the product title and the build number on a pale blue-grey ground.
#include <string>

#include "platform/base_window_win.h"
#include "platform/owned_win.h"

class SplashWindow : public BaseWindow<SplashWindow> {
public:
    ~SplashWindow();
    // Shows the window modeless; it paints itself at once.
    void Show(const std::string& title, const std::string& buildText);
    void Hide();
    void Close();

    LRESULT HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

private:
    void Paint(HDC dc);

    std::string title_;
    std::string buildText_;
    OwnedFont titleFont_;
    OwnedFont textFont_;
    OwnedIcon icon_;
    int dpi_ = 96;
};
