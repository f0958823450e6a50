#include "controls/check_box_win.h"

#include <algorithm>

#include "controls/check_glyph_win.h"

namespace {
// tmrMain, the leave watch.
constexpr UINT_PTR kLeaveWatchTimer = 1;
constexpr UINT kLeaveWatchMs = 200;

int ShiftState(WPARAM keys) {
    return ((keys & MK_SHIFT) ? kShiftDown : 0) | ((keys & MK_CONTROL) ? kCtrlDown : 0) |
           (GetKeyState(VK_MENU) < 0 ? kAltDown : 0);
}
}  // namespace

bool CheckBoxWin::Create(HWND parent, int id, const std::string& caption) {
    return CreateButton(parent, id, caption, BS_3STATE);
}

void CheckBoxWin::SetValue(int value) {
    check_.SetValue(value);
    Sync();
}

bool CheckBoxWin::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK: OnPress(MouseButton::Left, wParam, lParam); return true;
        case WM_MBUTTONDOWN:
        case WM_MBUTTONDBLCLK: OnPress(MouseButton::Middle, wParam, lParam); return true;
        case WM_RBUTTONDOWN:
        case WM_RBUTTONDBLCLK: OnPress(MouseButton::Right, wParam, lParam); return true;
        case WM_LBUTTONUP: OnRelease(MouseButton::Left); return true;
        case WM_MBUTTONUP: OnRelease(MouseButton::Middle); return true;
        case WM_MOUSEMOVE:
            if (Inside(PointOf(lParam))) check_.PointerOver();
            Sync();
            return true;
        case WM_TIMER:
            if (wParam != kLeaveWatchTimer) return false;
            check_.LeaveTick(PointerInside());
            Sync();
            return true;
        case WM_KEYDOWN:
        case WM_KEYUP:
            if (wParam != VK_SPACE) return false;
            OnSpace(lParam, message == WM_KEYDOWN);
            return true;
        case WM_SETFOCUS: Redraw(); return true;
        case WM_KILLFOCUS:
        case WM_CAPTURECHANGED:
            check_.Cancel();
            Sync();
            Redraw();
            return true;
        case WM_ENABLE:
            check_.SetEnabled(wParam != FALSE);
            Sync();
            return true;
        case BM_GETCHECK: result = check_.Value(); return true;
        case BM_SETCHECK: SetValue(static_cast<int>(wParam)); return true;
        case BM_GETSTATE: result = State(); return true;
    }
    return false;
}

void CheckBoxWin::OnPress(MouseButton button, WPARAM keys, LPARAM lParam) {
    if (button != MouseButton::Right) {
        SetFocus(hwnd_);
        HoldMouse();
    }
    POINT at = PointOf(lParam);
    check_.Press({button, ShiftState(keys), at.x, at.y});
    Sync();
}

void CheckBoxWin::OnRelease(MouseButton button) {
    LetGoOfMouse();
    check_.Release(button);
    Sync();
}

void CheckBoxWin::OnSpace(LPARAM flags, bool down) {
    if (down && !Repeated(flags)) check_.SpaceDown();
    if (!down) check_.SpaceUp();
    Sync();
}

// What accessibility tools read besides the value: pushed and focused.
LRESULT CheckBoxWin::State() const {
    LRESULT state = check_.Value();
    if (check_.Shown().look == CheckLook::Pushed) state |= BST_PUSHED;
    if (HasFocus()) state |= BST_FOCUS;
    return state;
}

void CheckBoxWin::Sync() {
    if (check_.Shown() != painted_) {
        painted_ = check_.Shown();
        Redraw();
    }
    const bool watching = check_.Watching();
    if (watching && !watchRunning_) SetTimer(hwnd_, kLeaveWatchTimer, kLeaveWatchMs, nullptr);
    if (!watching && watchRunning_) KillTimer(hwnd_, kLeaveWatchTimer);
    watchRunning_ = watching;
}

void CheckBoxWin::Paint(HDC dc, const RECT& client) {
    FillRect(dc, &client, GetSysColorBrush(COLOR_BTNFACE));
    const int dpi = Dpi();
    const int size = CheckGlyphSize(dpi);
    DrawCheckGlyph(dc, {0, (client.bottom - size) / 2}, check_.Shown(), dpi);
    RECT caption = client;
    caption.left = size + MulDiv(5, dpi, 96);
    DrawCaption(dc, caption);
}

// The caption beside the glyph; with the focus, the focus rectangle around
// the caption, as on the system's check box.
void CheckBoxWin::DrawCaption(HDC dc, RECT area) const {
    const std::string caption = Caption();
    const UINT format = DT_SINGLELINE | DT_LEFT | DT_END_ELLIPSIS | (AccessKeysShown() ? 0 : DT_HIDEPREFIX);
    RECT bounds = area;
    DrawTextA(dc, caption.c_str(), -1, &bounds, format | DT_CALCRECT);
    const int height = bounds.bottom - bounds.top;
    bounds.top = area.top + (area.bottom - area.top - height) / 2;
    bounds.bottom = bounds.top + height;
    bounds.right = std::min(bounds.right, area.right);
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(check_.Enabled() ? COLOR_BTNTEXT : COLOR_GRAYTEXT));
    DrawTextA(dc, caption.c_str(), -1, &bounds, format);
    if (!HasFocus() || !FocusCuesShown() || caption.empty()) return;
    InflateRect(&bounds, 2, 1);
    DrawFocusRect(dc, &bounds);
}
