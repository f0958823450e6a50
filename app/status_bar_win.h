#pragma once
// The status bar SB with its six panels: status line, pointer X and Y, stop
// key, clicks counter, number of steps.
#include <string>

#include "app/main_window_events.h"
#include "platform/win32.h"

inline constexpr int kPanelCount = static_cast<int>(kStatusPanels.size());

class StatusBarWin {
public:
    bool Create(HWND parent, int id);
    HWND Handle() const { return bar_; }
    // Panels are numbered 1 to 6.
    void SetText(int panel, const std::string& text);
    // Follows the parent's new size at `dpi`; returns the bar's height.
    int Resize(int clientWidth, int dpi);
    void SetFont(HFONT font);

private:
    HWND bar_ = nullptr;
};
