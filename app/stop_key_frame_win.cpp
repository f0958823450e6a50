#include "app/stop_key_frame_win.h"

#include <commctrl.h>

#include "platform/control_text_win.h"

namespace {

constexpr const char* kClassName = "KlickwerkStopKeyFrame";

// Places inside the frame, in twips.
constexpr double kMargin = 240;
constexpr double kLabelTop = 360;
constexpr double kLabelHeight = 300;
constexpr double kRowTop = 760;
constexpr double kComboWidth = 1800;
constexpr double kListHeight = 2600;  // the dropped list shows all ten keys
constexpr double kButtonWidth = 1100;
constexpr double kButtonHeight = 360;
constexpr double kGap = 120;

enum ChildId : int { kIdCombo = 10, kIdAccept, kIdClose };

}  // namespace

bool StopKeyFrameWin::Create(HWND parent) {
    if (!RegisterWindowClass(kClassName, nullptr, reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1))) return false;
    if (!CreateWindowOfClass(kClassName, "", WS_CHILD | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT, 0, 0, 0, 0,
                             parent))
        return false;
    group_ = ChildControl(hwnd_, WC_BUTTONA, "StopKey", BS_GROUPBOX, 0);
    label_ = ChildControl(hwnd_, WC_STATICA, "Choose the key that stops a run or a recording:", SS_LEFT, 0);
    combo_ = ChildControl(hwnd_, WC_COMBOBOXA, "", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, kIdCombo);
    accept_ = ChildControl(hwnd_, WC_BUTTONA, "Change", WS_TABSTOP | BS_PUSHBUTTON, kIdAccept);
    close_ = ChildControl(hwnd_, WC_BUTTONA, "Cancel", WS_TABSTOP | BS_PUSHBUTTON, kIdClose);
    keys_.Attach(combo_, [this](int keyCode) { return OnComboKey(keyCode); });
    return true;
}

void StopKeyFrameWin::Move(const PixelRect& area, int dpi) {
    auto px = [dpi](double twips) { return TwipsToPixels(twips, dpi); };
    MoveWindow(hwnd_, area.left, area.top, area.width, area.height, TRUE);
    MoveWindow(group_, 0, 0, area.width, area.height, TRUE);
    MoveWindow(label_, px(kMargin), px(kLabelTop), area.width - 2 * px(kMargin), px(kLabelHeight), TRUE);
    int left = px(kMargin);
    MoveWindow(combo_, left, px(kRowTop), px(kComboWidth), px(kListHeight), TRUE);
    left += px(kComboWidth + kGap);
    MoveWindow(accept_, left, px(kRowTop), px(kButtonWidth), px(kButtonHeight), TRUE);
    left += px(kButtonWidth + kGap);
    MoveWindow(close_, left, px(kRowTop), px(kButtonWidth), px(kButtonHeight), TRUE);
}

void StopKeyFrameWin::SetFont(HFONT font) {
    for (HWND child : {group_, label_, combo_, accept_, close_})
        SendMessageA(child, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

void StopKeyFrameWin::SetVisible(bool visible) {
    if (!visible && IsChild(hwnd_, GetFocus())) SetFocus(GetParent(hwnd_));
    ShowWindow(hwnd_, visible ? SW_SHOW : SW_HIDE);
    if (visible) SetFocus(combo_);
}

bool StopKeyFrameWin::Visible() const { return IsWindowVisible(hwnd_) != FALSE; }

std::string StopKeyFrameWin::ChosenName() const { return ComboChoice(combo_); }

bool StopKeyFrameWin::OnComboKey(int keyCode) {
    if (!onListKey) return false;
    // An open list takes the highlighted entry as the choice before it closes.
    if (SendMessageA(combo_, CB_GETDROPPEDSTATE, 0, 0)) SendMessageA(combo_, CB_SHOWDROPDOWN, FALSE, 0);
    return onListKey(keyCode, ChosenName());
}

void StopKeyFrameWin::OnCommand(WPARAM wParam) {
    if (HIWORD(wParam) != BN_CLICKED) return;
    if (LOWORD(wParam) == kIdAccept && onAccept) onAccept(ChosenName());
    if (LOWORD(wParam) == kIdClose && onClose) onClose();
}

LRESULT StopKeyFrameWin::HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND) {
        OnCommand(wParam);
        return 0;
    }
    return DefWindowProcA(hwnd, message, wParam, lParam);
}
