#include "controls/drawn_button_win.h"

#include <commctrl.h>

#include <exception>

#include "platform/dpi_win.h"
#include "platform/failure_trace_win.h"
#include "platform/owned_win.h"

namespace {
constexpr UINT_PTR kSubclassId = 1;
}  // namespace

DrawnButtonWin::~DrawnButtonWin() {
    if (!hwnd_) return;
    // The derived part is gone already: no message may reach it any more.
    RemoveWindowSubclass(hwnd_, &DrawnButtonWin::SubclassProc, kSubclassId);
    DestroyWindow(hwnd_);
}

bool DrawnButtonWin::CreateButton(HWND parent, int id, const std::string& caption, DWORD style) {
    hwnd_ = CreateWindowExA(0, WC_BUTTONA, caption.c_str(), WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, 0, 0, 0, 0,
                            parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleA(nullptr),
                            nullptr);
    if (!hwnd_) {
        ReportLastError("CreateWindowExA");
        return false;
    }
    if (SetWindowSubclass(hwnd_, &DrawnButtonWin::SubclassProc, kSubclassId, reinterpret_cast<DWORD_PTR>(this)))
        return true;
    ReportLastError("SetWindowSubclass");
    DestroyWindow(hwnd_);
    hwnd_ = nullptr;
    return false;
}

LRESULT CALLBACK DrawnButtonWin::SubclassProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                              DWORD_PTR self) {
    auto* button = reinterpret_cast<DrawnButtonWin*>(self);
    if (message == WM_NCDESTROY) {
        RemoveWindowSubclass(hwnd, &DrawnButtonWin::SubclassProc, kSubclassId);
        button->hwnd_ = nullptr;
        return DefSubclassProc(hwnd, message, wParam, lParam);
    }
    // No exception may unwind through the system's code.
    try {
        return button->HandleMessage(message, wParam, lParam);
    } catch (const std::exception& error) {
        ReportFailure("DrawnButtonProc", error.what(), 51);
    } catch (...) {
        ReportFailure("DrawnButtonProc", "Unknown error", 51);
    }
    return DefSubclassProc(hwnd, message, wParam, lParam);
}

LRESULT DrawnButtonWin::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_PAINT: {
            PAINTSTRUCT paint;
            HDC dc = BeginPaint(hwnd_, &paint);
            PaintBuffered(dc);
            EndPaint(hwnd_, &paint);
            return 0;
        }
        case WM_PRINTCLIENT: PaintBuffered(reinterpret_cast<HDC>(wParam)); return 0;
        case WM_ERASEBKGND: return 1;  // the paint covers every pixel
        case WM_SETFONT:
            font_ = reinterpret_cast<HFONT>(wParam);
            if (LOWORD(lParam)) Redraw();
            return 0;
        case WM_GETFONT: return reinterpret_cast<LRESULT>(font_);
        case WM_SETTEXT:
        case WM_UPDATEUISTATE: {
            LRESULT result = DefWindowProcA(hwnd_, message, wParam, lParam);
            Redraw();
            return result;
        }
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED: Redraw(); return 0;
        // The system's own pushed state and style changes would paint its look.
        case BM_SETSTATE: return 0;
        case BM_SETSTYLE:
            SetWindowLongPtrA(hwnd_, GWL_STYLE,
                              (GetWindowLongPtrA(hwnd_, GWL_STYLE) & ~BS_TYPEMASK) | (wParam & BS_TYPEMASK));
            if (lParam) Redraw();
            return 0;
        // A check box of the system ticks itself on "+" and "-".
        case WM_CHAR: return 0;
        case WM_CAPTURECHANGED:
            if (lettingGo_) return 0;
            break;
    }
    LRESULT result = 0;
    if (OnMessage(message, wParam, lParam, result)) return result;
    return DefSubclassProc(hwnd_, message, wParam, lParam);
}

// Drawn off screen and shown at once, so no half-drawn look ever flickers.
void DrawnButtonWin::PaintBuffered(HDC target) {
    RECT client{};
    GetClientRect(hwnd_, &client);
    if (client.right <= 0 || client.bottom <= 0) return;
    OwnedMemoryDc dc(CreateCompatibleDC(target));
    OwnedBitmap bitmap(CreateCompatibleBitmap(target, client.right, client.bottom));
    HGDIOBJ oldBitmap = SelectObject(dc.Get(), bitmap.Get());
    HGDIOBJ oldFont = SelectObject(dc.Get(), font_ ? font_ : GetStockObject(DEFAULT_GUI_FONT));
    Paint(dc.Get(), client);
    BitBlt(target, 0, 0, client.right, client.bottom, dc.Get(), 0, 0, SRCCOPY);
    SelectObject(dc.Get(), oldFont);
    SelectObject(dc.Get(), oldBitmap);
}

void DrawnButtonWin::Redraw() const {
    if (hwnd_) InvalidateRect(hwnd_, nullptr, FALSE);
}

std::string DrawnButtonWin::Caption() const {
    std::string text(static_cast<size_t>(GetWindowTextLengthA(hwnd_)) + 1, '\0');
    text.resize(static_cast<size_t>(GetWindowTextA(hwnd_, text.data(), static_cast<int>(text.size()))));
    return text;
}

int DrawnButtonWin::Dpi() const { return WindowDpi(hwnd_); }

bool DrawnButtonWin::FocusCuesShown() const { return !(SendMessageA(hwnd_, WM_QUERYUISTATE, 0, 0) & UISF_HIDEFOCUS); }

bool DrawnButtonWin::AccessKeysShown() const { return !(SendMessageA(hwnd_, WM_QUERYUISTATE, 0, 0) & UISF_HIDEACCEL); }

bool DrawnButtonWin::PointerInside() const {
    POINT pointer{};
    return GetCursorPos(&pointer) && WindowFromPoint(pointer) == hwnd_;
}

POINT DrawnButtonWin::PointOf(LPARAM lParam) {
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

bool DrawnButtonWin::Inside(POINT point) const {
    RECT client{};
    GetClientRect(hwnd_, &client);
    return PtInRect(&client, point) != FALSE;
}

void DrawnButtonWin::LetGoOfMouse() {
    if (GetCapture() != hwnd_) return;
    lettingGo_ = true;
    ReleaseCapture();
    lettingGo_ = false;
}
