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

constexpr int kReturnKey = VK_RETURN;
constexpr int kEscapeKey = VK_ESCAPE;

HWND Child(HWND parent, const char* className, const char* text, DWORD style, int id) {
    return CreateWindowExA(0, className, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, parent,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleA(nullptr), nullptr);
}

bool IsPanelKey(WPARAM key) { return key == kReturnKey || key == kEscapeKey; }

}  // namespace

bool StopKeyFrameWin::Create(HWND parent) {
    if (!RegisterWindowClass(kClassName, nullptr, reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1))) return false;
    if (!CreateWindowOfClass(kClassName, "", WS_CHILD | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT, 0, 0, 0, 0,
                             parent))
        return false;
    group_ = Child(hwnd_, WC_BUTTONA, "StopKey", BS_GROUPBOX, 0);
    label_ = Child(hwnd_, WC_STATICA, "Choose the key that stops a run or a recording:", SS_LEFT, 0);
    combo_ = Child(hwnd_, WC_COMBOBOXA, "", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, kIdCombo);
    accept_ = Child(hwnd_, WC_BUTTONA, "Change", WS_TABSTOP | BS_PUSHBUTTON, kIdAccept);
    close_ = Child(hwnd_, WC_BUTTONA, "Cancel", WS_TABSTOP | BS_PUSHBUTTON, kIdClose);
    SetWindowLongPtrA(combo_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    comboProc_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(combo_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&StopKeyFrameWin::ComboProc)));
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

LRESULT CALLBACK StopKeyFrameWin::ComboProc(HWND combo, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* frame = reinterpret_cast<StopKeyFrameWin*>(GetWindowLongPtrA(combo, GWLP_USERDATA));
    WNDPROC original = frame->comboProc_;
    try {
        switch (message) {
            case WM_GETDLGCODE: {
                // The window's dialog keys would otherwise take Return and Escape.
                const MSG* pending = reinterpret_cast<const MSG*>(lParam);
                LRESULT code = CallWindowProcA(original, combo, message, wParam, lParam);
                if (pending && pending->message == WM_KEYDOWN && IsPanelKey(pending->wParam))
                    code |= DLGC_WANTMESSAGE;
                return code;
            }
            case WM_KEYDOWN:
                if (IsPanelKey(wParam) && frame->OnComboKey(static_cast<int>(wParam))) return 0;
                break;
            case WM_CHAR:
                // The characters of the swallowed keys would only beep.
                if (IsPanelKey(wParam)) return 0;
                break;
            case WM_NCDESTROY:
                SetWindowLongPtrA(combo, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(original));
                SetWindowLongPtrA(combo, GWLP_USERDATA, 0);
                break;
        }
    } catch (...) {
        // Nothing may unwind through the system's code.
        return 0;
    }
    return CallWindowProcA(original, combo, message, wParam, lParam);
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
