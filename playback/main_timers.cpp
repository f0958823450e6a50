#include "playback/main_timers.h"

#include "app/app.h"
#include "app/status_line.h"
#include "playback/hot_keys.h"
#include "playback/stop_key.h"
#include "playback/waits.h"

const TimerSetup kMainTimers[6] = {
    {Timer::Stop, 20, false},       {Timer::Hotkey, 100, true}, {Timer::ShiftNext, 200, true},
    {Timer::CursorPos, 50, true},   {Timer::Blank, 2000, false}, {Timer::MouseSaver, 100, false},
};

void CreateMainTimers(App& app) {
    for (const TimerSetup& setup : kMainTimers) {
        app.ui.main.SetTimerInterval(setup.timer, setup.intervalMs);
        app.ui.main.SetTimer(setup.timer, setup.enabledAtCreation);
    }
}

bool OnMainTimer(App& app, Timer timer) {
    switch (timer) {
        case Timer::Stop: OnStopTimer(app); return true;
        case Timer::Hotkey: OnHotkeyTimer(app); return true;
        case Timer::ShiftNext: OnShiftNextTimer(app); return true;
        case Timer::CursorPos: OnCursorTimer(app); return true;
        case Timer::Blank: OnBlankTimer(app); return true;
        case Timer::MouseSaver: OnMouseSaverTimer(app); return true;
        default: return false;
    }
}
