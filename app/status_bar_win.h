#pragma once
// The status bar SB with its six panels: status line, pointer X and Y, stop
// key, clicks counter, number of steps. Each panel shows its tip on hover
// through a tooltip control of its own: the bar's built-in tips appear only
// for panels whose text is cut off.
#include <string>

#include "app/main_window_events.h"
#include "platform/win32.h"

#include <commctrl.h>

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
    TTTOOLINFOA ToolOf(int part) const;
    void CreateTips(HWND parent);
    void MoveTips();

    HWND bar_ = nullptr;
    HWND tips_ = nullptr;  // owned by the parent, which destroys it
};
