#include "app/main_window_events.h"

#include <functional>
#include <string>

#include "core/app.h"
#include "settings_ui/settings_panel.h"

namespace {

const std::function<void()>* StatusPanelCommand(CommandSeams& seams, const std::string& key) {
    if (key == "stopkey") return &seams.changeStopKey;
    if (key == "stepcounter") return &seams.resetStepCounter;
    if (key == "totalsteps") return &seams.changeSteps;
    return nullptr;
}

}  // namespace

void StatusPanelClick(App& app, int panel) {
    if (panel < 1 || panel > static_cast<int>(kStatusPanels.size())) return;
    if (const auto* command = StatusPanelCommand(app.seams, kStatusPanels[static_cast<std::size_t>(panel - 1)].key))
        RunSeam(*command);
}

void MainWindowResized(App& app) {
    if (app.ui.hint.Visible()) app.ui.hint.Centre();
}

void MainWindowMoved(App& app) {
    if (app.ui.settingsPanel.KeepAttached()) KeepSettingsPanelAttached(app);
}
