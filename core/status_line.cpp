#include "core/status_line.h"

#include "core/app.h"

void ShowStatus(App& app, const std::string& text, bool inBox, bool longDelay, int durationMs) {
    app.ui.main.SetPanelText(1, text);
    if (inBox) app.ui.boxes.Show(text, app.appTitle, BoxStyle::Information);
    int delay = durationMs != 0 ? durationMs : (longDelay ? 5000 : 2000);
    // Re-arming restarts the countdown, so a newer message gets its full time.
    app.ui.main.SetTimer(Timer::Blank, false);
    app.ui.main.SetTimerInterval(Timer::Blank, delay);
    app.ui.main.SetTimer(Timer::Blank, true);
}

void OnBlankTimer(App& app) {
    app.ui.main.SetTimer(Timer::Blank, false);
    app.ui.main.SetPanelText(1, "");
}
