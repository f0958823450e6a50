#pragma once
// The main window's timers (tmrStop, tmrHotkey, ...) over SetTimer: each has
// an interval and an enabled state that may be set before the window exists.
#include <array>
#include <optional>

#include "core/main_view.h"
#include "platform/win32.h"

inline constexpr int kTimerCount = static_cast<int>(Timer::ColResize) + 1;

class WindowTimers {
public:
    // Starts the timers already enabled.
    void Attach(HWND window);
    void SetEnabled(Timer timer, bool enabled);
    void SetInterval(Timer timer, int milliseconds);
    bool Enabled(Timer timer) const;
    // The timer a WM_TIMER belongs to, when it is one of ours and still enabled.
    std::optional<Timer> FromTimerId(UINT_PTR id) const;

private:
    struct Slot {
        bool enabled = false;
        int interval = 0;
    };
    // Restarts or stops the system timer after a change, as a changed
    // interval restarts the count. Zero intervals never fire.
    void Apply(Timer timer);
    Slot& SlotOf(Timer timer) { return slots_[static_cast<std::size_t>(timer)]; }
    const Slot& SlotOf(Timer timer) const { return slots_[static_cast<std::size_t>(timer)]; }

    std::array<Slot, kTimerCount> slots_{};
    HWND window_ = nullptr;
};
