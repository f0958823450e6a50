#pragma once
// Commands of the main window that other parts of the program answer. Each
// is empty until its part is wired in, and calling an empty one does nothing.
#include <functional>

struct CommandSeams {
    // The settings panel docked beside the main window.
    std::function<void()> openSettingsPanel;
    // Stops the panel's keep-attached timer and hides the panel.
    std::function<void()> hideSettingsPanel;
    // The toolbar's "save" command.
    std::function<void()> saveScript;
    // Unloads the main window, which runs its close sequence.
    std::function<void()> closeMainWindow;
    // The settings panel's commands reached from the status bar:
    // cmdChangeStopKey, cmdResetStepCounter and cmdChangeSteps.
    std::function<void()> changeStopKey;
    std::function<void()> resetStepCounter;
    std::function<void()> changeSteps;
};

inline void RunSeam(const std::function<void()>& seam) {
    if (seam) seam();
}
