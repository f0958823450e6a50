#include "app/repeat_button_win.h"

#include <uxtheme.h>
#include <vssym32.h>

#include <string>

namespace {
std::string Caption(HWND button) {
    char text[64] = {};
    GetWindowTextA(button, text, sizeof text);
    return text;
}

// The button face when repetition is off: the system's own push button.
void DrawPlainFace(const DRAWITEMSTRUCT& item, bool pressed, bool disabled) {
    RECT rect = item.rcItem;
    if (IsAppThemed()) {
        if (HTHEME theme = OpenThemeData(item.hwndItem, L"BUTTON")) {
            int state = disabled ? PBS_DISABLED : pressed ? PBS_PRESSED : PBS_NORMAL;
            DrawThemeBackground(theme, item.hDC, BP_PUSHBUTTON, state, &rect, nullptr);
            CloseThemeData(theme);
            return;
        }
    }
    DrawFrameControl(item.hDC, &rect, DFC_BUTTON, DFCS_BUTTONPUSH | (pressed ? DFCS_PUSHED : 0));
}

void DrawOnFace(const DRAWITEMSTRUCT& item, bool pressed) {
    RECT rect = item.rcItem;
    HBRUSH green = CreateSolidBrush(kRepeatOnColour);
    FillRect(item.hDC, &rect, green);
    DeleteObject(green);
    DrawEdge(item.hDC, &rect, pressed ? EDGE_SUNKEN : EDGE_RAISED, BF_RECT);
}
}  // namespace

void DrawRepeatButton(const DRAWITEMSTRUCT& item, bool on) {
    bool pressed = (item.itemState & ODS_SELECTED) != 0;
    bool disabled = (item.itemState & ODS_DISABLED) != 0;
    if (on) {
        DrawOnFace(item, pressed);
    } else {
        DrawPlainFace(item, pressed, disabled);
    }
    RECT text = item.rcItem;
    if (pressed) OffsetRect(&text, 1, 1);
    COLORREF ink = disabled ? GetSysColor(COLOR_GRAYTEXT) : on ? RGB(255, 255, 255) : GetSysColor(COLOR_BTNTEXT);
    SetTextColor(item.hDC, ink);
    SetBkMode(item.hDC, TRANSPARENT);
    std::string caption = Caption(item.hwndItem);
    DrawTextA(item.hDC, caption.c_str(), -1, &text, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    if ((item.itemState & ODS_FOCUS) && !(item.itemState & ODS_NOFOCUSRECT)) {
        RECT focus = item.rcItem;
        InflateRect(&focus, -3, -3);
        DrawFocusRect(item.hDC, &focus);
    }
}
