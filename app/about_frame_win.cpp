#include "app/about_frame_win.h"

#include "app/layout.h"
#include "app/resources/resource_ids.h"

namespace {
constexpr const char* kClassName = "KlickwerkAbout";
constexpr int kIdHide = 1001;
constexpr COLORREF kLinkInk = RGB(0, 70, 200);
// Measures in twips.
constexpr double kWidth = 4800;
constexpr double kHeight = 2700;
constexpr double kMargin = 240;
constexpr double kIconSize = 720;
constexpr double kLineHeight = 300;
constexpr double kTextLeft = kMargin * 2 + kIconSize;
constexpr double kTitleTop = 240;
constexpr double kBuildTop = 660;
constexpr double kMailTop = 1080;
constexpr double kWebTop = 1440;
constexpr double kButtonWidth = 1200;
constexpr double kButtonHeight = 400;

HFONT Derived(HFONT base, int weight, bool underline, double scale) {
    LOGFONTA font{};
    GetObjectA(base, sizeof font, &font);
    font.lfWeight = weight;
    font.lfUnderline = underline;
    font.lfHeight = static_cast<LONG>(font.lfHeight * scale);
    return CreateFontIndirectA(&font);
}

void TextAt(HDC dc, HFONT font, COLORREF ink, int left, int top, const std::string& text) {
    HGDIOBJ old = SelectObject(dc, font);
    SetTextColor(dc, ink);
    TextOutA(dc, left, top, text.c_str(), static_cast<int>(text.size()));
    SelectObject(dc, old);
}

const char* LinkText(AboutLink link) { return link == AboutLink::Mail ? kSupportMail : kWebAddress; }
}  // namespace

AboutFrameWin::~AboutFrameWin() { ReleaseFonts(); }

bool AboutFrameWin::Create(HWND parent) {
    if (!RegisterWindowClass(kClassName, nullptr, reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1))) return false;
    if (!CreateWindowOfClass(kClassName, "", WS_CHILD | WS_BORDER | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT, 0, 0, 0, 0,
                             parent))
        return false;
    hideButton_ = CreateWindowExA(0, "BUTTON", "OK", WS_CHILD | WS_VISIBLE | WS_TABSTOP | BS_DEFPUSHBUTTON, 0, 0, 0, 0,
                                  hwnd_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(kIdHide)),
                                  GetModuleHandleA(nullptr), nullptr);
    return hideButton_ != nullptr;
}

void AboutFrameWin::OnDpiChanged(int dpi, HFONT font) {
    dpi_ = dpi;
    font_ = font;
    ReleaseFonts();
    titleFont_ = Derived(font, FW_BOLD, false, 1.5);
    linkFont_ = Derived(font, FW_NORMAL, true, 1.0);
    int iconPixels = TwipsToPixels(kIconSize, dpi);
    icon_ = static_cast<HICON>(LoadImageA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDI_KLICKWERK), IMAGE_ICON,
                                          iconPixels, iconPixels, 0));
    SendMessageA(hideButton_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    auto px = [dpi](double twips) { return TwipsToPixels(twips, dpi); };
    SetWindowPos(hwnd_, nullptr, 0, 0, px(kWidth), px(kHeight), SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    RECT client{};
    GetClientRect(hwnd_, &client);
    MoveWindow(hideButton_, (client.right - px(kButtonWidth)) / 2, client.bottom - px(kButtonHeight + kMargin),
               px(kButtonWidth), px(kButtonHeight), TRUE);
}

void AboutFrameWin::SetTexts(const std::string& title, const std::string& build) {
    title_ = title;
    build_ = build;
    InvalidateRect(hwnd_, nullptr, TRUE);
}

double AboutFrameWin::FrameWidth() const { return kWidth; }

double AboutFrameWin::FrameHeight() const { return kHeight; }

double AboutFrameWin::InnerWidth() const {
    RECT client{};
    GetClientRect(GetParent(hwnd_), &client);
    return PixelsToTwips(client.right, dpi_);
}

double AboutFrameWin::InnerHeight() const {
    RECT client{};
    GetClientRect(GetParent(hwnd_), &client);
    return PixelsToTwips(client.bottom, dpi_);
}

void AboutFrameWin::MoveTo(double left, double top) {
    SetWindowPos(hwnd_, HWND_TOP, TwipsToPixels(left, dpi_), TwipsToPixels(top, dpi_), 0, 0,
                 SWP_NOSIZE | SWP_NOACTIVATE);
    UpdateWindow(GetParent(hwnd_));
}

double AboutFrameWin::Top() const {
    RECT rect{};
    GetWindowRect(hwnd_, &rect);
    MapWindowPoints(nullptr, GetParent(hwnd_), reinterpret_cast<POINT*>(&rect), 2);
    return PixelsToTwips(rect.top, dpi_);
}

void AboutFrameWin::SetVisible(bool visible) {
    if (visible) {
        // Wait above the inner area, so showing reveals nothing before the slide.
        SetWindowPos(hwnd_, HWND_TOP, 0, -TwipsToPixels(kHeight, dpi_), 0, 0, SWP_NOSIZE | SWP_NOACTIVATE);
    }
    ShowWindow(hwnd_, visible ? SW_SHOW : SW_HIDE);
}

bool AboutFrameWin::Visible() const { return IsWindowVisible(hwnd_) != FALSE; }

LRESULT AboutFrameWin::HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    AboutLink link;
    switch (message) {
        case WM_PAINT: {
            PAINTSTRUCT paint;
            HDC dc = BeginPaint(hwnd, &paint);
            Paint(dc);
            EndPaint(hwnd, &paint);
            return 0;
        }
        case WM_COMMAND:
            if (LOWORD(wParam) == kIdHide && onHide) onHide();
            return 0;
        case WM_LBUTTONUP:
            if (LinkAt({static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))}, link) && onLink)
                onLink(link);
            return 0;
        case WM_SETCURSOR: {
            POINT pointer;
            GetCursorPos(&pointer);
            ScreenToClient(hwnd, &pointer);
            if (LinkAt(pointer, link)) {
                SetCursor(LoadCursorA(nullptr, IDC_HAND));
                return TRUE;
            }
            break;
        }
    }
    return DefWindowProcA(hwnd, message, wParam, lParam);
}

RECT AboutFrameWin::LinkRect(AboutLink link) const {
    HDC dc = GetDC(hwnd_);
    HGDIOBJ old = SelectObject(dc, linkFont_);
    SIZE size{};
    const char* text = LinkText(link);
    GetTextExtentPoint32A(dc, text, lstrlenA(text), &size);
    SelectObject(dc, old);
    ReleaseDC(hwnd_, dc);
    int left = TwipsToPixels(kTextLeft, dpi_);
    int top = TwipsToPixels(link == AboutLink::Mail ? kMailTop : kWebTop, dpi_);
    return {left, top, left + size.cx, top + std::max<int>(size.cy, TwipsToPixels(kLineHeight, dpi_))};
}

bool AboutFrameWin::LinkAt(POINT point, AboutLink& link) const {
    for (AboutLink candidate : {AboutLink::Mail, AboutLink::Web}) {
        RECT rect = LinkRect(candidate);
        if (PtInRect(&rect, point)) {
            link = candidate;
            return true;
        }
    }
    return false;
}

void AboutFrameWin::Paint(HDC dc) {
    auto px = [this](double twips) { return TwipsToPixels(twips, dpi_); };
    if (icon_) DrawIconEx(dc, px(kMargin), px(kTitleTop), icon_, px(kIconSize), px(kIconSize), 0, nullptr, DI_NORMAL);
    SetBkMode(dc, TRANSPARENT);
    int left = px(kTextLeft);
    COLORREF ink = GetSysColor(COLOR_WINDOWTEXT);
    TextAt(dc, titleFont_, ink, left, px(kTitleTop), title_);
    TextAt(dc, font_, ink, left, px(kBuildTop), build_);
    TextAt(dc, linkFont_, kLinkInk, left, px(kMailTop), kSupportMail);
    TextAt(dc, linkFont_, kLinkInk, left, px(kWebTop), kWebAddress);
}

void AboutFrameWin::ReleaseFonts() {
    for (HFONT* font : {&titleFont_, &linkFont_}) {
        if (*font) DeleteObject(*font);
        *font = nullptr;
    }
    if (icon_) DestroyIcon(icon_);
    icon_ = nullptr;
}
