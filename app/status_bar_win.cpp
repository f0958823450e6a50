#include "app/status_bar_win.h"

#include <commctrl.h>

#include "app/layout.h"
#include "app/main_window_events.h"
#include "platform/failure_trace_win.h"

bool StatusBarWin::Create(HWND parent, int id) {
    bar_ = CreateWindowExA(0, STATUSCLASSNAMEA, "", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP, 0, 0, 0, 0,
                           parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleA(nullptr),
                           nullptr);
    if (!bar_) {
        ReportLastError("CreateWindowExA");
        return false;
    }
    int edges[kPanelCount] = {100, 200, 300, 400, 500, -1};
    SendMessageA(bar_, SB_SETPARTS, kPanelCount, reinterpret_cast<LPARAM>(edges));
    CreateTips(parent);
    return true;
}

// The tool of panel `part` (0 to 5), over the panel's rectangle of the bar.
TTTOOLINFOA StatusBarWin::ToolOf(int part) const {
    TTTOOLINFOA tool{};
    tool.cbSize = sizeof tool;
    tool.hwnd = bar_;
    tool.uId = static_cast<UINT_PTR>(part);
    SendMessageA(bar_, SB_GETRECT, part, reinterpret_cast<LPARAM>(&tool.rect));
    return tool;
}

void StatusBarWin::CreateTips(HWND parent) {
    tips_ = CreateWindowExA(WS_EX_TOPMOST, TOOLTIPS_CLASSA, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX, 0, 0,
                            0, 0, parent, nullptr, GetModuleHandleA(nullptr), nullptr);
    if (!tips_) {
        ReportLastError("CreateWindowExA");
        return;
    }
    for (int part = 0; part < kPanelCount; ++part) {
        TTTOOLINFOA tool = ToolOf(part);
        tool.uFlags = TTF_SUBCLASS;
        tool.lpszText = const_cast<char*>(kStatusPanels[static_cast<std::size_t>(part)].toolTip);
        SendMessageA(tips_, TTM_ADDTOOLA, 0, reinterpret_cast<LPARAM>(&tool));
    }
}

void StatusBarWin::MoveTips() {
    for (int part = 0; part < kPanelCount && tips_; ++part) {
        TTTOOLINFOA tool = ToolOf(part);
        SendMessageA(tips_, TTM_NEWTOOLRECTA, 0, reinterpret_cast<LPARAM>(&tool));
    }
}

void StatusBarWin::SetText(int panel, const std::string& text) {
    SendMessageA(bar_, SB_SETTEXTA, static_cast<WPARAM>(panel - 1), reinterpret_cast<LPARAM>(text.c_str()));
}

int StatusBarWin::Resize(int clientWidth, int dpi) {
    SendMessageA(bar_, WM_SIZE, 0, 0);
    auto edges = StatusPanelEdges(clientWidth, dpi);
    SendMessageA(bar_, SB_SETPARTS, kPanelCount, reinterpret_cast<LPARAM>(edges.data()));
    MoveTips();
    RECT rect{};
    GetWindowRect(bar_, &rect);
    return rect.bottom - rect.top;
}

void StatusBarWin::SetFont(HFONT font) { SendMessageA(bar_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE); }
