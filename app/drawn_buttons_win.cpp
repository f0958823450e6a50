#include "app/drawn_buttons_win.h"

#include <uxtheme.h>
#include <vssym32.h>

#include <string>

#include "platform/owned_win.h"

namespace {
std::string Caption(HWND button) {
    char text[64] = {};
    GetWindowTextA(button, text, sizeof text);
    return text;
}

bool Pressed(const DRAWITEMSTRUCT& item) { return (item.itemState & ODS_SELECTED) != 0; }
bool Disabled(const DRAWITEMSTRUCT& item) { return (item.itemState & ODS_DISABLED) != 0; }

// The system's own push-button face, themed where themes are on.
void DrawPlainFace(const DRAWITEMSTRUCT& item) {
    RECT rect = item.rcItem;
    if (IsAppThemed()) {
        if (HTHEME theme = OpenThemeData(item.hwndItem, L"BUTTON")) {
            int state = Disabled(item) ? PBS_DISABLED : Pressed(item) ? PBS_PRESSED : PBS_NORMAL;
            DrawThemeBackground(theme, item.hDC, BP_PUSHBUTTON, state, &rect, nullptr);
            CloseThemeData(theme);
            return;
        }
    }
    DrawFrameControl(item.hDC, &rect, DFC_BUTTON, DFCS_BUTTONPUSH | (Pressed(item) ? DFCS_PUSHED : 0));
}

void DrawGreenFace(const DRAWITEMSTRUCT& item) {
    RECT rect = item.rcItem;
    FillRect(item.hDC, &rect, OwnedBrush(CreateSolidBrush(kRepeatOnColour)).Get());
    DrawEdge(item.hDC, &rect, Pressed(item) ? EDGE_SUNKEN : EDGE_RAISED, BF_RECT);
}

void DrawFocus(const DRAWITEMSTRUCT& item) {
    if (!(item.itemState & ODS_FOCUS) || (item.itemState & ODS_NOFOCUSRECT)) return;
    RECT focus = item.rcItem;
    InflateRect(&focus, -3, -3);
    DrawFocusRect(item.hDC, &focus);
}

COLORREF Ink(const DRAWITEMSTRUCT& item, bool onGreen) {
    if (Disabled(item)) return GetSysColor(COLOR_GRAYTEXT);
    return onGreen ? RGB(255, 255, 255) : GetSysColor(COLOR_BTNTEXT);
}
}  // namespace

void DrawRepeatButton(const DRAWITEMSTRUCT& item, bool on) {
    if (on) {
        DrawGreenFace(item);
    } else {
        DrawPlainFace(item);
    }
    RECT text = item.rcItem;
    if (Pressed(item)) OffsetRect(&text, 1, 1);
    SetTextColor(item.hDC, Ink(item, on));
    SetBkMode(item.hDC, TRANSPARENT);
    std::string caption = Caption(item.hwndItem);
    DrawTextA(item.hDC, caption.c_str(), -1, &text, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    DrawFocus(item);
}

void DrawArrowButton(const DRAWITEMSTRUCT& item) {
    DrawPlainFace(item);
    const RECT& rect = item.rcItem;
    // A downward triangle a third of the button's width across.
    int half = std::max<int>(2, (rect.right - rect.left) / 6);
    int centreX = (rect.left + rect.right) / 2 + (Pressed(item) ? 1 : 0);
    int centreY = (rect.top + rect.bottom) / 2 + (Pressed(item) ? 1 : 0);
    POINT corners[] = {{centreX - half, centreY - half / 2}, {centreX + half + 1, centreY - half / 2},
                       {centreX, centreY + half / 2 + 1}};
    OwnedBrush ink(CreateSolidBrush(Ink(item, false)));
    HGDIOBJ oldBrush = SelectObject(item.hDC, ink.Get());
    HGDIOBJ oldPen = SelectObject(item.hDC, GetStockObject(NULL_PEN));
    Polygon(item.hDC, corners, 3);
    SelectObject(item.hDC, oldPen);
    SelectObject(item.hDC, oldBrush);
    DrawFocus(item);
}
