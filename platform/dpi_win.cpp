#include "platform/dpi_win.h"

#include "platform/twips.h"

namespace {
using GetDpiForWindowProc = UINT(WINAPI*)(HWND);
using SystemParametersInfoForDpiProc = BOOL(WINAPI*)(UINT, UINT, PVOID, UINT, UINT);

template <class Proc>
Proc User32Function(const char* name) {
    return reinterpret_cast<Proc>(reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("user32.dll"), name)));
}

int ScreenDpi() {
    HDC screen = GetDC(nullptr);
    int dpi = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    return dpi > 0 ? dpi : kTwipsPerInch / 15;
}
}  // namespace

int WindowDpi(HWND window) {
    static const auto getDpiForWindow = User32Function<GetDpiForWindowProc>("GetDpiForWindow");
    if (getDpiForWindow && window) {
        UINT dpi = getDpiForWindow(window);
        if (dpi > 0) return static_cast<int>(dpi);
    }
    return ScreenDpi();
}

HFONT CreateMessageFont(int dpi) {
    // The per-DPI call exists only in the wide form and fills the wide structure.
    static const auto forDpi = User32Function<SystemParametersInfoForDpiProc>("SystemParametersInfoForDpi");
    NONCLIENTMETRICSW wide{};
    wide.cbSize = sizeof wide;
    if (forDpi && forDpi(SPI_GETNONCLIENTMETRICS, sizeof wide, &wide, 0, static_cast<UINT>(dpi)))
        return CreateFontIndirectW(&wide.lfMessageFont);
    NONCLIENTMETRICSA metrics{};
    metrics.cbSize = sizeof metrics;
    if (!SystemParametersInfoA(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0))
        return static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
    // The classic call answers for the system DPI; scale to the window's.
    metrics.lfMessageFont.lfHeight = MulDiv(metrics.lfMessageFont.lfHeight, dpi, ScreenDpi());
    return CreateFontIndirectA(&metrics.lfMessageFont);
}
