#include "app/splash_win.h"

#include "app/layout.h"
#include "core/resource_ids.h"
#include "platform/dpi_win.h"

namespace {
constexpr const char* kClassName = "KlickwerkSplash";
constexpr COLORREF kBackground = RGB(222, 223, 231);
constexpr COLORREF kBorder = RGB(150, 153, 172);
constexpr COLORREF kTitleInk = RGB(22, 52, 120);
constexpr COLORREF kTextInk = RGB(70, 72, 90);
// Measures in twips.
constexpr double kWidth = 5400;
constexpr double kHeight = 2400;
constexpr double kIconSize = 720;
constexpr double kMargin = 420;
constexpr double kTitleTop = 600;
constexpr double kBuildTop = 1260;
constexpr double kLoadingTop = 1800;

HFONT ScaledFont(int dpi, double points, int weight) {
    LOGFONTA font{};
    GetObjectA(OwnedFont(CreateMessageFont(dpi)).Get(), sizeof font, &font);
    font.lfHeight = -MulDiv(static_cast<int>(points * 10), dpi, 720);
    font.lfWeight = weight;
    return CreateFontIndirectA(&font);
}

void TextAt(HDC dc, HFONT font, COLORREF ink, int left, int top, const std::string& text) {
    HGDIOBJ old = SelectObject(dc, font);
    SetTextColor(dc, ink);
    TextOutA(dc, left, top, text.c_str(), static_cast<int>(text.size()));
    SelectObject(dc, old);
}
}  // namespace

SplashWindow::~SplashWindow() { Close(); }

void SplashWindow::Show(const std::string& title, const std::string& buildText) {
    title_ = title;
    buildText_ = buildText;
    // No class brush: the window paints its whole ground itself.
    if (!hwnd_ && RegisterWindowClass(kClassName, nullptr, nullptr)) {
        CreateWindowOfClass(kClassName, title.c_str(), WS_POPUP, WS_EX_TOOLWINDOW | WS_EX_TOPMOST, 0, 0, 0, 0,
                            nullptr);
    }
    if (!hwnd_) return;
    dpi_ = WindowDpi(hwnd_);
    titleFont_.Reset(ScaledFont(dpi_, 16, FW_BOLD));
    textFont_.Reset(ScaledFont(dpi_, 9, FW_NORMAL));
    int iconPixels = TwipsToPixels(kIconSize, dpi_);
    icon_.Reset(static_cast<HICON>(LoadImageA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDI_KLICKWERK),
                                              IMAGE_ICON, iconPixels, iconPixels, 0)));
    int width = TwipsToPixels(kWidth, dpi_);
    int height = TwipsToPixels(kHeight, dpi_);
    RECT area{};
    SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0);
    SetWindowPos(hwnd_, nullptr, area.left + (area.right - area.left - width) / 2,
                 area.top + (area.bottom - area.top - height) / 2, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
    ShowWindow(hwnd_, SW_SHOWNOACTIVATE);
    UpdateWindow(hwnd_);
}

void SplashWindow::Hide() {
    if (hwnd_) ShowWindow(hwnd_, SW_HIDE);
}

void SplashWindow::Close() {
    if (hwnd_) DestroyWindow(hwnd_);
}

LRESULT SplashWindow::HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_PAINT) {
        PAINTSTRUCT paint;
        HDC dc = BeginPaint(hwnd, &paint);
        Paint(dc);
        EndPaint(hwnd, &paint);
        return 0;
    }
    return DefWindowProcA(hwnd, message, wParam, lParam);
}

void SplashWindow::Paint(HDC dc) {
    RECT client;
    GetClientRect(hwnd_, &client);
    FillRect(dc, &client, OwnedBrush(CreateSolidBrush(kBackground)).Get());
    FrameRect(dc, &client, OwnedBrush(CreateSolidBrush(kBorder)).Get());
    auto px = [this](double twips) { return TwipsToPixels(twips, dpi_); };
    int margin = px(kMargin);
    if (icon_) DrawIconEx(dc, margin, px(kTitleTop), icon_.Get(), px(kIconSize), px(kIconSize), 0, nullptr, DI_NORMAL);
    int textLeft = margin + px(kIconSize) + px(kMargin) / 2;
    SetBkMode(dc, TRANSPARENT);
    TextAt(dc, titleFont_.Get(), kTitleInk, textLeft, px(kTitleTop), title_);
    TextAt(dc, textFont_.Get(), kTextInk, textLeft, px(kBuildTop), buildText_);
    TextAt(dc, textFont_.Get(), kTextInk, textLeft, px(kLoadingTop), "Loading...");
}
