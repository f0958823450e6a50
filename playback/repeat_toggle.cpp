#include "playback/repeat_toggle.h"

#include "app/app.h"

void PressRepeatToggle(App& app) {
    app.settings.repeatState = app.settings.repeatState == "1" ? "0" : "1";
    app.ui.main.ShowRepeatState(app.settings.repeatState == "1");
}
