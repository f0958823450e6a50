#include "app/step_count_frame_win.h"

#include <commctrl.h>

#include <algorithm>

#include "platform/dpi_win.h"
#include "platform/twips.h"

namespace {

constexpr const char* kClassName = "KlickwerkStepCountFrame";

// The frame and its places inside it, in twips.
constexpr double kFrameWidth = 3600;
constexpr double kFrameHeight = 1575;
constexpr double kMargin = 240;
constexpr double kGap = 120;
constexpr double kRowTop = 360;
constexpr double kLabelWidth = 1560;
constexpr double kTextHeight = 345;
constexpr double kButtonTop = 960;
constexpr double kButtonWidth = 1100;
constexpr double kButtonHeight = 375;

enum ChildId : int { kIdText = 10, kIdAccept, kIdCancel };

void MoveTo(HWND window, int left, int top, int width, int height) {
    MoveWindow(window, left, top, width, height, TRUE);
}

}  // namespace

bool StepCountFrameWin::Create(HWND parent) {
    if (!RegisterWindowClass(kClassName, nullptr, reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1))) return false;
    if (!CreateWindowOfClass(kClassName, "", WS_CHILD | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT, 0, 0, 0, 0,
                             parent))
        return false;
    dpi_ = WindowDpi(parent);
    group_ = ChildControl(hwnd_, WC_BUTTONA, "Steps", BS_GROUPBOX, 0);
    // Centred in its height, the label's text stands level with the box's.
    label_ = ChildControl(hwnd_, WC_STATICA, "Number of steps:", SS_LEFT | SS_CENTERIMAGE | SS_NOPREFIX, 0);
    text_ = ChildControl(hwnd_, WC_EDITA, "", WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL, kIdText);
    accept_ = ChildControl(hwnd_, WC_BUTTONA, "Change", WS_TABSTOP | BS_PUSHBUTTON, kIdAccept);
    cancel_ = ChildControl(hwnd_, WC_BUTTONA, "Cancel", WS_TABSTOP | BS_PUSHBUTTON, kIdCancel);
    keys_.Attach(text_, [this](int keyCode) { return onKey && onKey(keyCode); });
    return true;
}

void StepCountFrameWin::SetFont(HFONT font) {
    for (HWND child : {group_, label_, text_, accept_, cancel_})
        SendMessageA(child, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

void StepCountFrameWin::Place(int dpi) {
    dpi_ = dpi;
    auto px = [dpi](double twips) { return TwipsToPixels(twips, dpi); };
    RECT client{};
    GetClientRect(GetParent(hwnd_), &client);
    int width = px(kFrameWidth);
    int height = px(kFrameHeight);
    MoveTo(hwnd_, (client.right - width) / 2, (client.bottom - height) / 2, width, height);
    MoveTo(group_, 0, 0, width, height);
    int textLeft = px(kMargin + kLabelWidth + kGap);
    MoveTo(label_, px(kMargin), px(kRowTop), px(kLabelWidth), px(kTextHeight));
    MoveTo(text_, textLeft, px(kRowTop), width - px(kMargin) - textLeft, px(kTextHeight));
    int cancelLeft = width - px(kMargin + kButtonWidth);
    MoveTo(cancel_, cancelLeft, px(kButtonTop), px(kButtonWidth), px(kButtonHeight));
    MoveTo(accept_, cancelLeft - px(kGap + kButtonWidth), px(kButtonTop), px(kButtonWidth), px(kButtonHeight));
}

void StepCountFrameWin::SetVisible(bool visible) {
    if (!visible && IsChild(hwnd_, GetFocus())) SetFocus(GetParent(hwnd_));
    ShowWindow(hwnd_, visible ? SW_SHOW : SW_HIDE);
}

bool StepCountFrameWin::Visible() const { return IsWindowVisible(hwnd_) != FALSE; }

std::string StepCountFrameWin::Text() const {
    int length = GetWindowTextLengthA(text_);
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    text.resize(static_cast<std::size_t>(std::max(GetWindowTextA(text_, text.data(), length + 1), 0)));
    return text;
}

void StepCountFrameWin::SetText(const std::string& text) {
    SetWindowTextA(text_, text.c_str());
    // The change it reports may have shortened the text again.
    int end = GetWindowTextLengthA(text_);
    SendMessageA(text_, EM_SETSEL, end, end);
}

void StepCountFrameWin::SelectAll() {
    SetFocus(text_);
    SendMessageA(text_, EM_SETSEL, 0, -1);
}


void StepCountFrameWin::OnCommand(WPARAM wParam) {
    int id = LOWORD(wParam);
    int code = HIWORD(wParam);
    if (id == kIdText && code == EN_CHANGE && onChange) onChange();
    if (code != BN_CLICKED) return;
    if (id == kIdAccept && onAccept) onAccept();
    if (id == kIdCancel && onCancel) onCancel();
}

LRESULT StepCountFrameWin::HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND) {
        OnCommand(wParam);
        return 0;
    }
    return DefWindowProcA(hwnd, message, wParam, lParam);
}
