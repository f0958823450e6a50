#include "playback/pointer_actions.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <vector>

#include "core/app.h"
#include "core/basic_text.h"
#include "core/error_log.h"
#include "core/vocabulary.h"
#include "platform/win_constants.h"
#include "playback/run_input.h"

namespace {

// An absolute move with the upper half of the flags set, as sent.
constexpr std::uint32_t kAbsoluteMove = 0xFFFF0000 | win::kMouseAbsolute | win::kMouseMove;
constexpr double kAbsoluteScale = 65535;
// The pointer may be reported a pass late on a busy system; only a pointer
// that stays put pass after pass is stuck, as at the screen's edge when the
// target lies beyond it.
constexpr int kStuckPasses = 20;

// A click that carries its position, on the whole desktop's 0..65535 scale.
constexpr std::uint32_t kClickAt = win::kMouseVirtualDesk | win::kMouseAbsolute | win::kMouseMove;

constexpr std::uint32_t kLeftClick = win::kMouseLeftDown | win::kMouseLeftUp;
constexpr std::uint32_t kRightClick = win::kMouseRightDown | win::kMouseRightUp;

// mouse_event flags of each click action, in the order of kClickActions
// ("No Click" ... "Right Up"); double clicks send both halves twice.
const std::array<std::vector<std::uint32_t>, 9> kClickFlags{{
    {}, {kLeftClick}, {kLeftClick, kLeftClick}, {win::kMouseLeftDown}, {win::kMouseLeftUp},
    {kRightClick}, {kRightClick, kRightClick}, {win::kMouseRightDown}, {win::kMouseRightUp},
}};

// One pass's move along an axis: two pixels' worth, never past the target.
int StepTowards(int distance, int twoPixels) { return std::clamp(distance, -twoPixels, twoPixels); }

struct Scale {
    double width;
    double height;
    int ToX(int pixels) const { return CLng(pixels * kAbsoluteScale / width); }
    int ToY(int pixels) const { return CLng(pixels * kAbsoluteScale / height); }
};

// The 0..65535 coordinate that the system truncates back to exactly this
// pixel; a pixel off the desktop counts as its nearest edge.
int DesktopCoordinate(int pixel, int origin, int extent) {
    extent = std::max(extent, 1);
    std::int64_t offset = std::clamp(pixel - origin, 0, extent - 1);
    return static_cast<int>((offset * 65536 + extent - 1) / extent);
}

}  // namespace

void SScroll(App& app, int x, int y) {
    Trapped(app, "SScroll", [&] {
        InputDevice& input = app.os.input;
        Scale scale{static_cast<double>(input.GetSystemMetrics(win::kSmCxScreen)), static_cast<double>(input.GetSystemMetrics(win::kSmCyScreen))};
        int tx = scale.ToX(x), ty = scale.ToY(y);
        int ux = CLng(kAbsoluteScale / scale.width), uy = CLng(kAbsoluteScale / scale.height);
        Point previous{-1, -1};
        int unmoved = 0;
        for (bool last = false; !last && !app.stopRequested;) {
            Point pointer = input.GetCursorPos();
            unmoved = pointer == previous ? unmoved + 1 : 0;
            if (unmoved == kStuckPasses) return;
            previous = pointer;
            int cx = scale.ToX(pointer.x), cy = scale.ToY(pointer.y);
            int dx = tx - cx, dy = ty - cy;
            last = std::abs(dx) < 2 * ux && std::abs(dy) < 2 * uy;
            int nx = last ? tx : cx + StepTowards(dx, 2 * ux);
            int ny = last ? ty : cy + StepTowards(dy, 2 * uy);
            app.os.clock.Yield();
            input.MouseEvent(kAbsoluteMove, nx, ny);
            app.os.clock.Yield();
        }
    });
}

void SendClickAction(App& app, const std::string& action, Point at) {
    InputDevice& input = app.os.input;
    for (std::size_t i = 0; i < kClickActions.size(); ++i) {
        if (action != kClickActions[i]) continue;
        int dx = DesktopCoordinate(at.x, input.GetSystemMetrics(win::kSmXVirtualScreen),
                                   input.GetSystemMetrics(win::kSmCxVirtualScreen));
        int dy = DesktopCoordinate(at.y, input.GetSystemMetrics(win::kSmYVirtualScreen),
                                   input.GetSystemMetrics(win::kSmCyVirtualScreen));
        for (std::uint32_t flags : kClickFlags[i]) SendMouse(app, flags | kClickAt, dx, dy);
    }
}
