#include "app/hint_frame_win.h"

#include <initializer_list>

#include "platform/control_text_win.h"
#include "platform/twips.h"

namespace {

constexpr const char* kClassName = "KlickwerkHintFrame";

// The frame and its parts in twips.
constexpr double kWidth = 5800;
constexpr double kHeight = 3000;
constexpr double kInset = 200;
constexpr double kCaptionTop = 300;
constexpr double kLineHeight = 300;
constexpr double kHintTop = 700;
constexpr double kButtonHeight = 375;
constexpr double kButtonWidth = 1000;
constexpr double kGap = 90;

enum ChildId : int { kIdDontShow = 10, kIdPrevious, kIdNext, kIdHide };

}  // namespace

bool HintFrameWin::Create(HWND parent) {
    if (!RegisterWindowClass(kClassName, nullptr, reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1))) return false;
    if (!CreateWindowOfClass(kClassName, "", WS_CHILD | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT, 0, 0, 0, 0, parent))
        return false;
    group_ = ChildControl(hwnd_, "BUTTON", "Did You Know?", BS_GROUPBOX, 0);
    caption_ = ChildControl(hwnd_, "STATIC", "", SS_LEFT | SS_NOPREFIX, 0);
    hint_ = ChildControl(hwnd_, "STATIC", "", SS_LEFT | SS_NOPREFIX, 0);
    dontShow_ = ChildControl(hwnd_, "BUTTON", "Do not show hints at start-up", WS_TABSTOP | BS_AUTOCHECKBOX, kIdDontShow);
    previous_ = ChildControl(hwnd_, "BUTTON", "< Previous", WS_TABSTOP | BS_PUSHBUTTON, kIdPrevious);
    next_ = ChildControl(hwnd_, "BUTTON", "Next >", WS_TABSTOP | BS_PUSHBUTTON, kIdNext);
    hide_ = ChildControl(hwnd_, "BUTTON", "Close", WS_TABSTOP | BS_PUSHBUTTON, kIdHide);
    return true;
}

void HintFrameWin::OnDpiChanged(int dpi, HFONT font) {
    dpi_ = dpi;
    for (HWND child : {group_, caption_, hint_, dontShow_, previous_, next_, hide_})
        SendMessageA(child, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    Layout();
    if (Visible()) Centre();
}

void HintFrameWin::Layout() {
    auto px = [this](double twips) { return TwipsToPixels(twips, dpi_); };
    int width = px(kWidth);
    int height = px(kHeight);
    SetWindowPos(hwnd_, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    PlaceChild(group_, 0, 0, width, height);
    int inset = px(kInset);
    PlaceChild(caption_, inset, px(kCaptionTop), width - 2 * inset, px(kLineHeight));
    // The buttons at the bottom right, chkDYK on its own line above them.
    int rowTop = height - inset - px(kButtonHeight);
    int checkTop = rowTop - px(kGap) - px(kButtonHeight);
    PlaceChild(hint_, inset, px(kHintTop), width - 2 * inset, checkTop - px(kHintTop) - px(kGap));
    PlaceChild(dontShow_, inset, checkTop, width - 2 * inset, px(kButtonHeight));
    int left = width - inset - 3 * px(kButtonWidth) - 2 * px(kGap);
    for (HWND button : {previous_, next_, hide_}) {
        PlaceChild(button, left, rowTop, px(kButtonWidth), px(kButtonHeight));
        left += px(kButtonWidth) + px(kGap);
    }
}

void HintFrameWin::SetTexts(const std::string& caption, const std::string& hint) {
    SetWindowTextA(caption_, caption.c_str());
    SetWindowTextA(hint_, hint.c_str());
}

std::string HintFrameWin::Caption() const { return WindowTextOf(caption_); }

std::string HintFrameWin::Hint() const { return WindowTextOf(hint_); }

void HintFrameWin::SetDontShow(bool checked) {
    SendMessageA(dontShow_, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

bool HintFrameWin::DontShow() const { return SendMessageA(dontShow_, BM_GETCHECK, 0, 0) == BST_CHECKED; }

void HintFrameWin::Centre() {
    RECT inner{};
    GetClientRect(GetParent(hwnd_), &inner);
    RECT frame{};
    GetWindowRect(hwnd_, &frame);
    int width = frame.right - frame.left;
    int height = frame.bottom - frame.top;
    SetWindowPos(hwnd_, HWND_TOP, (inner.right - width) / 2, (inner.bottom - height) / 2, 0, 0,
                 SWP_NOSIZE | SWP_NOACTIVATE);
}

void HintFrameWin::SetVisible(bool visible) {
    if (!visible && IsChild(hwnd_, GetFocus())) SetFocus(GetParent(hwnd_));
    ShowWindow(hwnd_, visible ? SW_SHOW : SW_HIDE);
}

bool HintFrameWin::Visible() const { return IsWindowVisible(hwnd_) != FALSE; }

void HintFrameWin::OnCommand(WPARAM wParam) {
    if (HIWORD(wParam) != BN_CLICKED) return;
    const std::function<void()>* handler = nullptr;
    switch (LOWORD(wParam)) {
        case kIdDontShow: handler = &onDontShowChanged; break;
        case kIdPrevious: handler = &onPrevious; break;
        case kIdNext: handler = &onNext; break;
        case kIdHide: handler = &onHide; break;
    }
    if (handler && *handler) (*handler)();
}

LRESULT HintFrameWin::HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND) {
        OnCommand(wParam);
        return 0;
    }
    return DefWindowProcA(hwnd, message, wParam, lParam);
}
