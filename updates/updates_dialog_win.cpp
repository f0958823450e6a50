#include "updates/updates_dialog_win.h"

#include "platform/dpi_win.h"
#include "platform/message_pump_win.h"
#include "platform/twips.h"

namespace {

constexpr const char* kDialogClass = "KlickwerkUpdates";

// Places in twips. The label holds the longest text, the offer of a build,
// in two lines with room for a third.
constexpr double kMargin = 240;
constexpr double kDisplayWidth = 5400;
constexpr double kDisplayHeight = 660;
constexpr double kButtonWidth = 1500;
constexpr double kButtonHeight = 375;
constexpr double kButtonGap = 120;

enum ChildId : int { kIdDownload = 10, kIdUpdates };

}  // namespace

bool UpdatesDialogWin::Create(const std::string& heading) {
    if (!RegisterWindowClass(kDialogClass, nullptr, reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1))) return false;
    if (!CreateWindowOfClass(kDialogClass, heading.c_str(), WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN,
                             WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT, 0, 0, 0, 0, owner_))
        return false;
    display_ = ChildControl(hwnd_, "STATIC", "", SS_LEFT | SS_NOPREFIX, 0);
    if (!download_.Create(hwnd_, kIdDownload, "&Download") || !updates_.Create(hwnd_, kIdUpdates, "&What's New") ||
        !close_.Create(hwnd_, IDCANCEL, "&Close"))
        return false;
    EnableWindow(download_.Handle(), FALSE);
    Layout();
    return true;
}

void UpdatesDialogWin::Layout() {
    int dpi = WindowDpi(owner_);
    font_.Reset(CreateMessageFont(dpi));
    auto px = [dpi](double twips) { return TwipsToPixels(twips, dpi); };
    int margin = px(kMargin);
    PlaceChild(display_, margin, margin, px(kDisplayWidth), px(kDisplayHeight));
    int buttonTop = margin + px(kDisplayHeight) + margin;
    int right = margin + px(kDisplayWidth);
    int left = right - px(3 * kButtonWidth + 2 * kButtonGap);
    for (HWND button : {download_.Handle(), updates_.Handle(), close_.Handle()}) {
        PlaceChild(button, left, buttonTop, px(kButtonWidth), px(kButtonHeight));
        left += px(kButtonWidth + kButtonGap);
    }
    for (HWND child : {display_, download_.Handle(), updates_.Handle(), close_.Handle()})
        SendMessageA(child, WM_SETFONT, reinterpret_cast<WPARAM>(font_.Get()), TRUE);
    CentreOverOwner(hwnd_, owner_, right + margin, buttonTop + px(kButtonHeight) + margin);
}

void UpdatesDialogWin::Run(const std::string& heading, UpdatesEvents& events) {
    if (!Create(heading)) return;
    events_ = &events;
    open_ = true;
    EnableWindow(owner_, FALSE);
    ShowWindow(hwnd_, SW_SHOW);
    UpdateWindow(hwnd_);
    SetFocus(close_.Handle());
    events.Loaded();
    RunModalLoop(hwnd_, open_);
    // The owner is enabled first, so that it is the window activated next.
    EnableWindow(owner_, TRUE);
    events_ = nullptr;
    DestroyWindow(hwnd_);
    SetActiveWindow(owner_);
}

void UpdatesDialogWin::SetDisplay(const std::string& text) { SetWindowTextA(display_, text.c_str()); }

void UpdatesDialogWin::SetDownloadEnabled(bool enabled) { EnableWindow(download_.Handle(), enabled); }

void UpdatesDialogWin::OnCommand(int id) {
    if (!events_) return;
    switch (id) {
        case kIdDownload: events_->Download(); break;
        case kIdUpdates: events_->OpenUpdates(); break;
        case IDCANCEL: events_->Close(); break;
    }
}

LRESULT UpdatesDialogWin::HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND: OnCommand(LOWORD(wParam)); return 0;
        case DM_GETDEFID: return MAKELRESULT(IDCANCEL, DC_HASDEFID);
        case WM_CLOSE:
            if (events_) events_->Close();
            return 0;
    }
    return DefWindowProcA(hwnd, message, wParam, lParam);
}
