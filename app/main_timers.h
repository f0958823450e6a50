#pragma once
// The main window's timers: their intervals and states at creation, and the
// handler each one's tick runs.
#include "core/main_view.h"

struct App;

struct TimerSetup {
    Timer timer;
    int intervalMs;
    bool enabledAtCreation;
};

extern const TimerSetup kMainTimers[7];

// Sets every timer of kMainTimers to its interval and state at creation.
void CreateMainTimers(App& app);
// Runs the tick handler of `timer`.
void OnMainTimer(App& app, Timer timer);
