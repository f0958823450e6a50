#include "playback/waits.h"

#include <cmath>
#include <cstdio>

#include "core/app.h"
#include "core/basic_text.h"
#include "core/error_log.h"
#include "core/status_line.h"

namespace {

constexpr const char* kRemainingPrefix = "Remaining until next step: ";

bool CountdownOn(const App& app) { return app.settings.showCount == 1; }

// The wall clock has whole-second resolution for the end-time arithmetic.
double WholeNow(App& app) { return std::floor(app.os.clock.Now()); }

void ShowShortWait(App& app) {
    if (CountdownOn(app)) ShowStatus(app, std::string(kRemainingPrefix) + "<1 second");
}

void ShowRemaining(App& app) {
    if (!CountdownOn(app)) return;
    ShowStatus(app, kRemainingPrefix + RemainingText(static_cast<long>(app.waitEndTime - WholeNow(app))));
}

// Systems without waitable timers poll the tick count instead. The wrap
// correction is kept exactly as the program has always done it.
void PollShortWait(App& app, double seconds) {
    double remainingMs = seconds * 1000;
    std::uint32_t start = app.os.clock.TickCount();
    for (;;) {
        app.os.clock.Yield();
        ShowShortWait(app);
        std::uint32_t now = app.os.clock.TickCount();
        if (now < start) {
            remainingMs -= 86400.0 - start;
            start = app.os.clock.TickCount();
            continue;
        }
        if (now - start >= remainingMs || app.stopRequested) return;
    }
}

void ShortWait(App& app, double seconds, bool polling) {
    if (polling) {
        PollShortWait(app, seconds);
        return;
    }
    ShowShortWait(app);
    app.os.clock.Wait(seconds, app.stopRequested);
}

// Counts down to app.waitEndTime in one-second steps, or in message-loop
// passes on systems that must poll.
void WaitUntilEnd(App& app, bool polling) {
    do {
        ShowRemaining(app);
        if (polling) {
            app.os.clock.Yield();
        } else {
            app.os.clock.Wait(1, app.stopRequested);
        }
    } while (WholeNow(app) < app.waitEndTime && !app.stopRequested);
}

}  // namespace

std::string RemainingText(long seconds) {
    // A date-time value formatted "hh:mm:ss" shows the time of day.
    long inDay = ((seconds % 86400) + 86400) % 86400;
    char text[16];
    std::snprintf(text, sizeof text, "%02ld:%02ld:%02ld", inDay / 3600, inDay / 60 % 60, inDay % 60);
    return text;
}

void Pause(App& app, double seconds) {
    Trapped(app, "Pause", [&] {
        // Below zero (or not a number) is no wait, however far below.
        if (!(seconds > 0)) return;
        bool polling = app.osName == kWindows95Name;
        if (seconds <= 1) {
            ShortWait(app, seconds, polling);
            return;
        }
        app.waitEndTime = WholeNow(app) + CLng(seconds);
        WaitUntilEnd(app, polling);
    });
}

void OnMouseSaverTimer(App& app) {
    if (app.settings.mouseSaver != 1) return;
    Point pointer = app.os.input.GetCursorPos();
    if (app.guardX == 0) app.guardX = pointer.x;
    if (app.guardY == 0) app.guardY = pointer.y;
    if (app.guardX != pointer.x && app.guardY != pointer.y) {
        app.waitEndTime += 1;
        app.os.clock.Sleep(1000);
    }
    app.guardX = pointer.x;
    app.guardY = pointer.y;
}
