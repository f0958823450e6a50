#include "app/enable_controls.h"

#include "core/app.h"
#include "playback/run_controls.h"

namespace {

bool OnTop(const App& app) { return app.settings.onTop == 1; }

}  // namespace

void ApplyWindowState(App& app) {
    switch (app.ui.main.State()) {
        case WindowState::Normal:
            if (OnTop(app)) app.ui.main.SetTopmost(true);
            break;
        case WindowState::Minimised:
            EnableControls(app, true, false);
            RunSeam(app.seams.hideSettingsPanel);
            if (OnTop(app)) app.ui.main.SetTopmost(false);
            break;
        case WindowState::Maximised:
            break;
    }
}
