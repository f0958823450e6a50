#include "app/recorded_input_win.h"

#include <windowsx.h>

#include "recorder/recording.h"

namespace {
// As the mouse events number their buttons.
constexpr int kLeft = 1;
constexpr int kRight = 2;
constexpr int kMiddle = 4;
}  // namespace

bool DeliverRecordedInput(App& app, UINT message, WPARAM wParam, LPARAM lParam) {
    // The position is the pointer's on the screen, where a mouse message
    // carries client coordinates.
    const int x = GET_X_LPARAM(lParam);
    const int y = GET_Y_LPARAM(lParam);
    const int key = static_cast<int>(wParam);
    switch (message) {
        case WM_MOUSEMOVE: RecordMouseMove(app, x, y); return true;
        case WM_LBUTTONDOWN: RecordMouseDown(app, kLeft, x, y); return true;
        case WM_RBUTTONDOWN: RecordMouseDown(app, kRight, x, y); return true;
        case WM_MBUTTONDOWN: RecordMouseDown(app, kMiddle, x, y); return true;
        case WM_LBUTTONUP: RecordMouseUp(app, kLeft, x, y); return true;
        case WM_RBUTTONUP: RecordMouseUp(app, kRight, x, y); return true;
        case WM_MBUTTONUP: RecordMouseUp(app, kMiddle, x, y); return true;
        case WM_LBUTTONDBLCLK:
        case WM_RBUTTONDBLCLK:
        case WM_MBUTTONDBLCLK: RecordDoubleClick(app); return true;
        case WM_KEYDOWN: RecordKeyDown(app, key); return true;
        case WM_KEYUP: RecordKeyUp(app, key); return true;
        default: return false;
    }
}
