#include "app/status_bar_win.h"

#include <commctrl.h>

#include "app/layout.h"
#include "app/main_window_events.h"
#include "platform/failure_trace_win.h"

bool StatusBarWin::Create(HWND parent, int id) {
    bar_ = CreateWindowExA(0, STATUSCLASSNAMEA, "", WS_CHILD | WS_VISIBLE | SBARS_SIZEGRIP | SBARS_TOOLTIPS, 0, 0, 0, 0,
                           parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleA(nullptr),
                           nullptr);
    if (!bar_) {
        ReportLastError("CreateWindowExA");
        return false;
    }
    int edges[kPanelCount] = {100, 200, 300, 400, 500, -1};
    SendMessageA(bar_, SB_SETPARTS, kPanelCount, reinterpret_cast<LPARAM>(edges));
    for (int part = 0; part < kPanelCount; ++part)
        SendMessageA(bar_, SB_SETTIPTEXTA, part, reinterpret_cast<LPARAM>(kStatusPanels[static_cast<std::size_t>(part)].toolTip));
    return true;
}

void StatusBarWin::SetText(int panel, const std::string& text) {
    SendMessageA(bar_, SB_SETTEXTA, static_cast<WPARAM>(panel - 1), reinterpret_cast<LPARAM>(text.c_str()));
}

int StatusBarWin::Resize(int clientWidth, int dpi) {
    SendMessageA(bar_, WM_SIZE, 0, 0);
    auto edges = StatusPanelEdges(clientWidth, dpi);
    SendMessageA(bar_, SB_SETPARTS, kPanelCount, reinterpret_cast<LPARAM>(edges.data()));
    RECT rect{};
    GetWindowRect(bar_, &rect);
    return rect.bottom - rect.top;
}

void StatusBarWin::SetFont(HFONT font) { SendMessageA(bar_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE); }
