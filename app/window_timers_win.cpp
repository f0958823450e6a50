#include "app/window_timers_win.h"

#include "platform/failure_trace_win.h"

namespace {
// Timer ids start at 1: SetTimer treats 0 as "make up an id".
UINT_PTR IdOf(Timer timer) { return static_cast<UINT_PTR>(timer) + 1; }
}  // namespace

void WindowTimers::Attach(HWND window) {
    window_ = window;
    for (int index = 0; index < kTimerCount; ++index) Apply(static_cast<Timer>(index));
}

void WindowTimers::SetEnabled(Timer timer, bool enabled) {
    SlotOf(timer).enabled = enabled;
    Apply(timer);
}

void WindowTimers::SetInterval(Timer timer, int milliseconds) {
    SlotOf(timer).interval = milliseconds;
    Apply(timer);
}

bool WindowTimers::Enabled(Timer timer) const { return SlotOf(timer).enabled; }

std::optional<Timer> WindowTimers::FromTimerId(UINT_PTR id) const {
    if (id < 1 || id > static_cast<UINT_PTR>(kTimerCount)) return std::nullopt;
    auto timer = static_cast<Timer>(id - 1);
    const Slot& slot = SlotOf(timer);
    if (!slot.enabled || slot.interval <= 0) return std::nullopt;
    return timer;
}

void WindowTimers::Apply(Timer timer) {
    if (!window_) return;
    const Slot& slot = SlotOf(timer);
    if (slot.enabled && slot.interval > 0) {
        if (!::SetTimer(window_, IdOf(timer), static_cast<UINT>(slot.interval), nullptr)) ReportLastError("SetTimer");
    } else {
        KillTimer(window_, IdOf(timer));
    }
}
