#include "app/about_frame_win.h"

#include "app/layout.h"
#include "platform/dpi_win.h"
#include "core/resource_ids.h"

namespace {

constexpr const char* kClassName = "KlickwerkAboutFrame";
constexpr COLORREF kBackground = RGB(222, 223, 231);
constexpr COLORREF kBorder = RGB(150, 154, 170);
constexpr COLORREF kLinkColour = RGB(0, 82, 204);
constexpr COLORREF kHoveredLinkColour = RGB(204, 60, 0);

// The frame and its parts in twips.
constexpr double kFrameWidth = 5200;
constexpr double kFrameHeight = 2500;
constexpr double kLogoLeft = 300;
constexpr double kLogoTop = 330;
constexpr double kLogoSize = 720;
constexpr double kTextLeft = 1320;
constexpr double kTextWidth = 3700;
constexpr double kTitleTop = 300;
constexpr double kTitleHeight = 420;
constexpr double kLineHeight = 300;
constexpr double kBuildTop = 740;
constexpr double kMailTop = 1160;
constexpr double kWebTop = 1460;
constexpr double kButtonWidth = 1200;
constexpr double kButtonHeight = 400;
constexpr double kButtonMargin = 200;

constexpr int kHideButtonId = 1;
constexpr UINT_PTR kHoverTimerId = 1;
constexpr UINT kHoverCheckMs = 100;

HFONT Derived(HFONT base, int heightPercent, int weight, bool underline) {
    LOGFONTA font{};
    GetObjectA(base, sizeof font, &font);
    font.lfHeight = MulDiv(font.lfHeight, heightPercent, 100);
    font.lfWeight = weight;
    font.lfUnderline = underline;
    return CreateFontIndirectA(&font);
}

}  // namespace

AboutFrameWin::~AboutFrameWin() {
    if (hwnd_) DestroyWindow(hwnd_);
}

bool AboutFrameWin::Create(HWND parent) {
    background_.Reset(CreateSolidBrush(kBackground));
    if (!RegisterWindowClass(kClassName, nullptr, nullptr)) return false;
    dpi_ = WindowDpi(parent);
    top_ = -kFrameHeight;
    if (!CreateWindowOfClass(kClassName, "", WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN, 0, 0,
                             Pixels(-kFrameHeight), Pixels(kFrameWidth), Pixels(kFrameHeight), parent))
        return false;
    title_ = ChildControl(hwnd_, "STATIC", "", SS_LEFT | SS_NOPREFIX, 0);
    build_ = ChildControl(hwnd_, "STATIC", "", SS_LEFT | SS_NOPREFIX, 0);
    mail_ = ChildControl(hwnd_, "STATIC", "", SS_LEFT | SS_NOPREFIX | SS_NOTIFY, 0);
    web_ = ChildControl(hwnd_, "STATIC", "", SS_LEFT | SS_NOPREFIX | SS_NOTIFY, 0);
    cmdHideAbout_ = ChildControl(hwnd_, "BUTTON", "", BS_PUSHBUTTON | WS_TABSTOP, kHideButtonId);
    SetWindowTextA(mail_, kSupportMail);
    SetWindowTextA(web_, kWebAddress);
    SetWindowTextA(cmdHideAbout_, "OK");
    OnDpiChanged(dpi_, static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT)));
    return true;
}

void AboutFrameWin::OnDpiChanged(int dpi, HFONT font) {
    if (!hwnd_) return;
    dpi_ = dpi;
    CreateFonts(font);
    SetWindowPos(hwnd_, nullptr, Pixels(left_), Pixels(top_), Pixels(kFrameWidth), Pixels(kFrameHeight),
                 SWP_NOZORDER | SWP_NOACTIVATE);
    Layout();
}

int AboutFrameWin::Pixels(double twips) const { return TwipsToPixels(twips, dpi_); }

void AboutFrameWin::CreateFonts(HFONT base) {
    font_ = base;
    titleFont_.Reset(Derived(base, 135, FW_BOLD, false));
    linkFont_.Reset(Derived(base, 100, FW_NORMAL, true));
}

void AboutFrameWin::Layout() {
    int textLeft = Pixels(kTextLeft), textWidth = Pixels(kTextWidth), line = Pixels(kLineHeight);
    PlaceChild(title_, textLeft, Pixels(kTitleTop), textWidth, Pixels(kTitleHeight));
    PlaceChild(build_, textLeft, Pixels(kBuildTop), textWidth, line);
    PlaceChild(mail_, textLeft, Pixels(kMailTop), textWidth, line);
    PlaceChild(web_, textLeft, Pixels(kWebTop), textWidth, line);
    PlaceChild(cmdHideAbout_, Pixels(kFrameWidth - kButtonWidth - kButtonMargin),
          Pixels(kFrameHeight - kButtonHeight - kButtonMargin), Pixels(kButtonWidth), Pixels(kButtonHeight));
    SendMessageA(title_, WM_SETFONT, reinterpret_cast<WPARAM>(titleFont_.Get()), TRUE);
    SendMessageA(build_, WM_SETFONT, reinterpret_cast<WPARAM>(font_), TRUE);
    SendMessageA(mail_, WM_SETFONT, reinterpret_cast<WPARAM>(linkFont_.Get()), TRUE);
    SendMessageA(web_, WM_SETFONT, reinterpret_cast<WPARAM>(linkFont_.Get()), TRUE);
    SendMessageA(cmdHideAbout_, WM_SETFONT, reinterpret_cast<WPARAM>(font_), TRUE);

    int logoSize = Pixels(kLogoSize);
    logo_.Reset(static_cast<HICON>(LoadImageA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDI_KLICKWERK),
                                              IMAGE_ICON, logoSize, logoSize, LR_DEFAULTCOLOR)));
    InvalidateRect(hwnd_, nullptr, TRUE);
}

void AboutFrameWin::SetTexts(const std::string& title, const std::string& build) {
    SetWindowTextA(title_, title.c_str());
    SetWindowTextA(build_, build.c_str());
}

double AboutFrameWin::FrameWidth() const { return kFrameWidth; }
double AboutFrameWin::FrameHeight() const { return kFrameHeight; }

double AboutFrameWin::InnerWidth() const {
    RECT inner{};
    GetClientRect(GetParent(hwnd_), &inner);
    return PixelsToTwips(inner.right, dpi_);
}

double AboutFrameWin::InnerHeight() const {
    RECT inner{};
    GetClientRect(GetParent(hwnd_), &inner);
    return PixelsToTwips(inner.bottom, dpi_);
}

void AboutFrameWin::MoveTo(double left, double top) {
    left_ = left;
    top_ = top;
    SetWindowPos(hwnd_, HWND_TOP, Pixels(left), Pixels(top), 0, 0, SWP_NOSIZE | SWP_NOACTIVATE);
}

void AboutFrameWin::SetVisible(bool visible) {
    if (visible) {
        SetWindowPos(hwnd_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    } else {
        ShowWindow(hwnd_, SW_HIDE);
    }
}

bool AboutFrameWin::Visible() const { return hwnd_ && IsWindowVisible(hwnd_); }

void AboutFrameWin::Paint() {
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(hwnd_, &paint);
    RECT area;
    GetClientRect(hwnd_, &area);
    FillRect(dc, &area, background_.Get());
    FrameRect(dc, &area, OwnedBrush(CreateSolidBrush(kBorder)).Get());
    if (logo_) {
        int size = Pixels(kLogoSize);
        DrawIconEx(dc, Pixels(kLogoLeft), Pixels(kLogoTop), logo_.Get(), size, size, 0, nullptr, DI_NORMAL);
    }
    EndPaint(hwnd_, &paint);
}

LRESULT AboutFrameWin::ColourLabel(HDC dc, HWND label) {
    SetBkMode(dc, TRANSPARENT);
    COLORREF text = GetSysColor(COLOR_WINDOWTEXT);
    if (label == mail_ || label == web_) text = label == hoveredLink_ ? kHoveredLinkColour : kLinkColour;
    SetTextColor(dc, text);
    return reinterpret_cast<LRESULT>(background_.Get());
}

void AboutFrameWin::SetHoveredLink(HWND link) {
    if (link == hoveredLink_) return;
    if (hoveredLink_) InvalidateRect(hoveredLink_, nullptr, TRUE);
    if (link) InvalidateRect(link, nullptr, TRUE);
    hoveredLink_ = link;
    // The pointer may leave the frame straight from a link; a short timer notices.
    if (link) {
        SetTimer(hwnd_, kHoverTimerId, kHoverCheckMs, nullptr);
    } else {
        KillTimer(hwnd_, kHoverTimerId);
    }
}

// Links show a hand and change colour while the pointer is over them.
bool AboutFrameWin::SetCursorFor(HWND child) {
    HWND link = child == mail_ || child == web_ ? child : nullptr;
    SetHoveredLink(link);
    if (!link) return false;
    SetCursor(LoadCursorA(nullptr, IDC_HAND));
    return true;
}

void AboutFrameWin::CheckHover() {
    POINT pointer{};
    GetCursorPos(&pointer);
    if (WindowFromPoint(pointer) != hoveredLink_ || !IsWindowVisible(hwnd_)) SetHoveredLink(nullptr);
}

void AboutFrameWin::OnCommand(WPARAM wParam, LPARAM lParam) {
    HWND from = reinterpret_cast<HWND>(lParam);
    if (HIWORD(wParam) != STN_CLICKED) return;
    if (from == mail_ && onLink) onLink(AboutLink::Mail);
    if (from == web_ && onLink) onLink(AboutLink::Web);
    if (from == cmdHideAbout_ && onHide) onHide();
}

LRESULT AboutFrameWin::HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_PAINT:
            Paint();
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_CTLCOLORSTATIC:
            return ColourLabel(reinterpret_cast<HDC>(wParam), reinterpret_cast<HWND>(lParam));
        case WM_SETCURSOR:
            if (SetCursorFor(reinterpret_cast<HWND>(wParam))) return TRUE;
            break;
        case WM_COMMAND:
            OnCommand(wParam, lParam);
            return 0;
        case WM_TIMER:
            if (wParam == kHoverTimerId) CheckHover();
            return 0;
    }
    return DefWindowProcA(hwnd, message, wParam, lParam);
}
