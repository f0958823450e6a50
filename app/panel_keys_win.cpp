#include "app/panel_keys_win.h"

#include <commctrl.h>

#include <utility>

namespace {

constexpr UINT_PTR kSubclassId = 1;

bool IsPanelKey(WPARAM key) { return key == VK_RETURN || key == VK_ESCAPE; }

}  // namespace

PanelKeys::~PanelKeys() {
    if (control_) RemoveWindowSubclass(control_, &PanelKeys::Proc, kSubclassId);
}

void PanelKeys::Attach(HWND control, std::function<bool(int keyCode)> onKey) {
    onKey_ = std::move(onKey);
    if (SetWindowSubclass(control, &PanelKeys::Proc, kSubclassId, reinterpret_cast<DWORD_PTR>(this)))
        control_ = control;
}

LRESULT CALLBACK PanelKeys::Proc(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR,
                                 DWORD_PTR self) {
    auto* keys = reinterpret_cast<PanelKeys*>(self);
    try {
        switch (message) {
            case WM_GETDLGCODE: {
                const MSG* pending = reinterpret_cast<const MSG*>(lParam);
                LRESULT code = DefSubclassProc(control, message, wParam, lParam);
                if (pending && pending->message == WM_KEYDOWN && IsPanelKey(pending->wParam))
                    code |= DLGC_WANTMESSAGE;
                return code;
            }
            case WM_KEYDOWN:
                if (IsPanelKey(wParam) && keys->onKey_ && keys->onKey_(static_cast<int>(wParam))) return 0;
                break;
            case WM_CHAR:
                if (IsPanelKey(wParam)) return 0;
                break;
            case WM_NCDESTROY:
                RemoveWindowSubclass(control, &PanelKeys::Proc, kSubclassId);
                keys->control_ = nullptr;
                break;
        }
    } catch (...) {
        // Nothing may unwind through the system's code.
        return 0;
    }
    return DefSubclassProc(control, message, wParam, lParam);
}
