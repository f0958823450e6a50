#include "playback/stop_key.h"

#include "core/app.h"
#include "core/basic_text.h"
#include "playback/run_controls.h"

void OnStopTimer(App& app) {
    if (!IsKeyDown(app.os.input, app.stopKeyCode)) return;
    if (EndsWith(app.ui.main.RecordCaption(), "TO STOP")) {
        if (app.clickRecord) app.clickRecord();
    } else {
        StopButton(app);
    }
}
