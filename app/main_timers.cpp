#include "app/main_timers.h"

#include "core/app.h"
#include "core/status_line.h"
#include "editing/column_widths.h"
#include "playback/hot_keys.h"
#include "playback/stop_key.h"
#include "playback/waits.h"

namespace {

// tmrCursorPos's tick: the pointer position in status-bar panels 2 and 3.
void OnCursorTimer(App& app) {
    Point pointer = app.os.input.GetCursorPos();
    app.ui.main.SetPanelText(2, std::to_string(pointer.x));
    app.ui.main.SetPanelText(3, std::to_string(pointer.y));
}

}  // namespace

const TimerSetup kMainTimers[7] = {
    {Timer::Stop, 20, false},       {Timer::Hotkey, 100, true}, {Timer::ShiftNext, 200, true},
    {Timer::CursorPos, 50, true},   {Timer::Blank, 2000, false}, {Timer::MouseSaver, 100, false},
    {Timer::ColResize, 200, false},
};

void CreateMainTimers(App& app) {
    for (const TimerSetup& setup : kMainTimers) {
        app.ui.main.SetTimerInterval(setup.timer, setup.intervalMs);
        app.ui.main.SetTimer(setup.timer, setup.enabledAtCreation);
    }
}

void OnMainTimer(App& app, Timer timer) {
    switch (timer) {
        case Timer::Stop: OnStopTimer(app); break;
        case Timer::Hotkey: OnHotkeyTimer(app); break;
        case Timer::ShiftNext: OnShiftNextTimer(app); break;
        case Timer::CursorPos: OnCursorTimer(app); break;
        case Timer::Blank: OnBlankTimer(app); break;
        case Timer::MouseSaver: OnMouseSaverTimer(app); break;
        case Timer::ColResize: OnColResizeTimer(app); break;
    }
}
