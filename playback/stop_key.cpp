#include "playback/stop_key.h"

#include "app/app.h"
#include "app/settings_store.h"
#include "app/status_line.h"
#include "playback/run_controls.h"
#include "script/basic_text.h"
#include "script/vocabulary.h"

namespace {

constexpr int kReturnKey = 13;
constexpr int kEscapeKey = 27;

void ShowStopKeyPanel(App& app, bool open) {
    app.ui.main.SetFrameVisible(Frame::StopKey, open);
    app.ui.main.SetFrameVisible(Frame::Main, !open);
}

}  // namespace

void OnStopTimer(App& app) {
    if (app.os.input.GetAsyncKeyState(app.stopKeyCode) == 0) return;
    if (EndsWith(app.ui.main.RecordCaption(), "TO STOP")) {
        if (app.clickRecord) app.clickRecord();
    } else {
        StopButton(app);
    }
}

void ChangeStopKey(App& app, const std::string& name) {
    app.stopKeyCode = StopKeyCodeOf(name);
    // F6 has no code, so the panel and the notice show the empty name.
    std::string shownName = StopKeyName(app.stopKeyCode);
    app.ui.main.SetPanelText(4, shownName);
    WriteIni(app, "MAIN", "StopKey", std::to_string(app.stopKeyCode), "");
    ShowStatus(app, "StopKey successfully changed to " + shownName);
    CloseStopKeyPanel(app);
}

void OpenStopKeyPanel(App& app) { ShowStopKeyPanel(app, true); }

void CloseStopKeyPanel(App& app) { ShowStopKeyPanel(app, false); }

bool OnStopKeyListKey(App& app, int keyCode, const std::string& chosenName) {
    if (keyCode == kReturnKey) {
        ChangeStopKey(app, chosenName);
        return true;
    }
    if (keyCode == kEscapeKey) {
        CloseStopKeyPanel(app);
        return true;
    }
    return false;
}
