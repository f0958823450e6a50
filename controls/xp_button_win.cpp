#include "controls/xp_button_win.h"

#include <uxtheme.h>
#include <vssym32.h>

#include <algorithm>
#include <optional>

#include "platform/owned_win.h"

namespace {
using OwnedTheme = Owned<HTHEME, &CloseThemeData>;

// Lines of the classic face and the focus rectangle's inset.
int LineWidth(int dpi) { return std::max(1, MulDiv(1, dpi, 96)); }

int ThemeState(PushLook look, bool focused) {
    switch (look) {
        case PushLook::Hot: return PBS_HOT;
        case PushLook::Pushed: return PBS_PRESSED;
        case PushLook::Disabled: return PBS_DISABLED;
        case PushLook::Normal: break;
    }
    return focused ? PBS_DEFAULTED : PBS_NORMAL;
}

// The classic style has no hot face; the caption takes the hot-tracking colour.
COLORREF ClassicInk(PushLook look) {
    if (look == PushLook::Disabled) return GetSysColor(COLOR_GRAYTEXT);
    return GetSysColor(look == PushLook::Hot ? COLOR_HOTLIGHT : COLOR_BTNTEXT);
}
}  // namespace

bool XpButtonWin::Create(HWND parent, int id, const std::string& caption) {
    return CreateButton(parent, id, caption, BS_PUSHBUTTON);
}

bool XpButtonWin::OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
        case WM_MOUSEMOVE: OnMouseMove(PointOf(lParam)); return true;
        case WM_MOUSELEAVE:
            trackingLeave_ = false;
            button_.PointerOver(PointerInside());
            break;
        case WM_LBUTTONDOWN:
        case WM_LBUTTONDBLCLK: OnPress(PointOf(lParam)); return true;
        case WM_LBUTTONUP: OnRelease(PointOf(lParam)); return true;
        case WM_KEYDOWN:
        case WM_KEYUP: return OnKey(wParam, lParam, message == WM_KEYDOWN);
        case WM_SETFOCUS:
        case WM_KILLFOCUS: button_.SetFocused(message == WM_SETFOCUS); break;
        case WM_ENABLE: button_.SetEnabled(wParam != FALSE); break;
        case WM_CAPTURECHANGED: button_.Cancel(); break;
        case WM_GETDLGCODE: result = DialogCode(reinterpret_cast<const MSG*>(lParam)); return true;
        case BM_GETSTATE: result = State(); return true;
        default: return false;
    }
    Sync();
    return true;
}

void XpButtonWin::OnMouseMove(POINT at) {
    if (!trackingLeave_) {
        TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, hwnd_, 0};
        trackingLeave_ = TrackMouseEvent(&track) != FALSE;
    }
    button_.PointerOver(Inside(at));
    Sync();
}

void XpButtonWin::OnPress(POINT at) {
    SetFocus(hwnd_);
    HoldMouse();
    button_.PointerOver(Inside(at));
    button_.Press();
    Sync();
}

void XpButtonWin::OnRelease(POINT at) {
    button_.PointerOver(Inside(at));
    LetGoOfMouse();
    const bool clicked = button_.Release();
    Sync();
    if (clicked) Notify();
}

bool XpButtonWin::OnKey(WPARAM key, LPARAM flags, bool down) {
    bool clicked = false;
    if (key == VK_SPACE && down && !Repeated(flags)) button_.SpaceDown();
    else if (key == VK_SPACE && !down) clicked = button_.SpaceUp();
    else if (key == VK_RETURN && down && !Repeated(flags)) clicked = button_.Enter();
    else if (key != VK_SPACE && key != VK_RETURN) return false;
    Sync();
    if (clicked) Notify();
    return true;
}

// A push button to the dialog manager, which also hands it Enter: the
// focused button is clicked by Enter wherever the window's default is.
LRESULT XpButtonWin::DialogCode(const MSG* message) const {
    LRESULT code = DLGC_BUTTON | DLGC_UNDEFPUSHBUTTON;
    if (message && message->message == WM_KEYDOWN && message->wParam == VK_RETURN) code |= DLGC_WANTMESSAGE;
    return code;
}

LRESULT XpButtonWin::State() const {
    LRESULT state = 0;
    if (button_.Look() == PushLook::Pushed) state |= BST_PUSHED;
    if (button_.Look() == PushLook::Hot) state |= BST_HOT;
    if (HasFocus()) state |= BST_FOCUS;
    return state;
}

void XpButtonWin::Notify() const {
    SendMessageA(GetParent(hwnd_), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(hwnd_), BN_CLICKED),
                 reinterpret_cast<LPARAM>(hwnd_));
}

void XpButtonWin::Sync() {
    if (button_.Look() == paintedLook_ && button_.ShowsFocus() == paintedFocus_) return;
    paintedLook_ = button_.Look();
    paintedFocus_ = button_.ShowsFocus();
    Redraw();
}

void XpButtonWin::Paint(HDC dc, const RECT& client) {
    FillRect(dc, &client, GetSysColorBrush(COLOR_BTNFACE));
    const int dpi = Dpi();
    const std::optional<Face> themed = DrawThemedFace(dc, client);
    Face face = themed ? *themed : DrawClassicFace(dc, client, dpi);
    const std::string caption = Caption();
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, face.ink);
    DrawTextA(dc, caption.c_str(), -1, &face.content,
              DT_CENTER | DT_VCENTER | DT_SINGLELINE | DT_END_ELLIPSIS | (AccessKeysShown() ? 0 : DT_HIDEPREFIX));
    if (!button_.ShowsFocus() || !FocusCuesShown()) return;
    InflateRect(&face.content, -LineWidth(dpi), -LineWidth(dpi));
    DrawFocusRect(dc, &face.content);
}

// The theme's face, and its caption colour for the state.
std::optional<XpButtonWin::Face> XpButtonWin::DrawThemedFace(HDC dc, const RECT& area) const {
    if (!IsAppThemed()) return std::nullopt;
    OwnedTheme theme(OpenThemeData(hwnd_, L"BUTTON"));
    if (!theme) return std::nullopt;
    const int state = ThemeState(button_.Look(), button_.ShowsFocus());
    if (IsThemeBackgroundPartiallyTransparent(theme.Get(), BP_PUSHBUTTON, state)) {
        RECT behind = area;
        DrawThemeParentBackground(hwnd_, dc, &behind);
    }
    DrawThemeBackground(theme.Get(), dc, BP_PUSHBUTTON, state, &area, nullptr);
    Face face{area, GetSysColor(button_.Look() == PushLook::Disabled ? COLOR_GRAYTEXT : COLOR_BTNTEXT)};
    GetThemeBackgroundContentRect(theme.Get(), dc, BP_PUSHBUTTON, state, &area, &face.content);
    GetThemeColor(theme.Get(), BP_PUSHBUTTON, state, TMT_TEXTCOLOR, &face.ink);
    return face;
}

// The classic button: a dark frame round the focused (default) one, the
// raised or sunken face, the caption a pixel down and right while pushed.
XpButtonWin::Face XpButtonWin::DrawClassicFace(HDC dc, RECT area, int dpi) const {
    const PushLook look = button_.Look();
    const int line = LineWidth(dpi);
    if (button_.ShowsFocus()) {
        FillRect(dc, &area, GetSysColorBrush(COLOR_WINDOWFRAME));
        InflateRect(&area, -line, -line);
    }
    UINT state = DFCS_BUTTONPUSH;
    if (look == PushLook::Pushed) state |= DFCS_PUSHED;
    if (look == PushLook::Hot) state |= DFCS_HOT;
    if (look == PushLook::Disabled) state |= DFCS_INACTIVE;
    DrawFrameControl(dc, &area, DFC_BUTTON, state);
    Face face{area, ClassicInk(look)};
    InflateRect(&face.content, -2 * line, -2 * line);
    if (look == PushLook::Pushed) OffsetRect(&face.content, line, line);
    return face;
}
