#include "app/toolbar_commands.h"

#include <map>

#include "app/about_box.h"
#include "app/hints.h"
#include "app/save_load_commands.h"
#include "core/app.h"
#include "core/error_log.h"
#include "platform/win_constants.h"
#include "playback/run_controls.h"

namespace {


void OpenSettings(App& app) {
    // Without a settings panel nothing would unlock the controls again.
    if (!app.seams.openSettingsPanel) return;
    EnableControls(app, false, false);
    app.seams.openSettingsPanel();
}

void OpenHelpFile(App& app) {
    app.ui.main.SetEnabled(Control::ToolHelp, false);
    app.os.shell.Open(app.programFolder + "\\Klickwerk.chm", "", "", win::kSwShowMaximized);
    app.ui.main.SetEnabled(Control::ToolHelp, true);
}


void Exit(App& app) {
    app.ui.main.SetBusyPointer(false);
    RunSeam(app.seams.closeMainWindow);
}

using Command = void (*)(App&);

const std::map<std::string, Command>& Commands() {
    static const std::map<std::string, Command> commands = {
        {"save", SaveCommand}, {"load", LoadCommand},     {"settings", OpenSettings}, {"about", ShowAbout},
        {"help", OpenHelpFile}, {"h1", ShowHintPanel},         {"h2", OpenHelpFile},       {"exit", Exit},
    };
    return commands;
}

// A failed command leaves its button usable rather than locked for the rest
// of the run; the about box keeps its button while it is shown.
void ReleaseAfterError(App& app, const std::string& key) {
    const ToolbarButton* button = ToolbarButtonOf(key);
    if (!button || button->control == Control::ToolExit) return;
    if (button->control == Control::ToolAbout && app.ui.about.Visible()) return;
    if (button->control == Control::ToolSettings) {
        EnableControls(app, true, false);
        return;
    }
    app.ui.main.SetEnabled(button->control, true);
}

}  // namespace

const ToolbarButton* ToolbarButtonOf(const std::string& key) {
    for (const HelpMenuEntry& entry : kHelpMenu) {
        if (key == entry.key) return ToolbarButtonOf("help");
    }
    for (const ToolbarButton& button : kToolbarButtons) {
        if (key == button.key) return &button;
    }
    return nullptr;
}

void ToolbarClick(App& app, const std::string& key) {
    auto found = Commands().find(key);
    if (found == Commands().end()) return;
    if (!Trapped(app, "TBBDown/Up", [&] { found->second(app); })) ReleaseAfterError(app, key);
}
