#pragma once
// frmSettings: the side panel that edits the program's on/off options, hangs
// centred on the main window's right edge while it is open, resets the total
// clicks counter and opens the stop-key and step-count changes. This is what
// it decides; its window (settings_panel_win.h) shows it.
#include <array>

#include "core/settings.h"

struct App;

// The option check boxes in the panel's order, each with the settings key it
// stands for.
struct PanelOption {
    Setting key;
    const char* control;
    const char* caption;
    const char* toolTip;
};

inline constexpr std::array<PanelOption, 9> kPanelOptions = {{
    {Setting::OnTop, "chkOnTop", "Keep Klickwerk on top",
     "Enabling this feature will keep Klickwerk on top of all other windows."},
    {Setting::SmoothPointer, "chkSmoothPNTScroll", "Enable Smooth Pointer Scroll",
     "Enabling this feature will scroll the mouse to the new destination instead of warping it."},
    {Setting::ShowCount, "chkShowCounter", "Display Countdown",
     "Enabling this feature will display a countdown in milliseconds of each step."},
    {Setting::AutoStart, "chkAutoStart", "Auto Start on Load",
     "Enabling this feature will press Start button as soon as the program loads."},
    {Setting::StartMin, "chkStartMin", "Auto Start Minimized",
     "Enabling this feature will minimize the program when Start is clicked."},
    {Setting::WithWindows, "chkWithWindows", "Start with Windows",
     "Enabling this feature will load the program when Windows loads."},
    {Setting::DYK, "chkDYKWizard", "Start Did You Know on load",
     "Enabling this feature will load Did You Know (recommended to keep on until you become very familiar with "
     "the program)."},
    {Setting::Enter4Step, "chkRECAcceptEnter", "REC: Enter creates new step",
     "During Recording pressing Enter is treated as F11.  Checked means Enter is treated as F11, not checked means "
     "Enter is treated as a normal key."},
    {Setting::MouseSaver, "chkMouseSaver", "Enable Mouse-Saver",
     "Enabling this feature will allow you to pause Klickwerk for # of seconds (defined below) as soon as you move "
     "the mouse."},
}};

enum class PanelCommand { Hide, ChangeStopKey, ResetStepCounter, ChangeSteps };

// The buttons in the panel's order; an empty tool tip is none.
struct PanelButton {
    PanelCommand command;
    const char* control;
    const char* caption;
    const char* toolTip;
};

inline constexpr std::array<PanelButton, 4> kPanelButtons = {{
    {PanelCommand::Hide, "cmdHideOpt", "Hide", "Press here to hide this Settings window."},
    {PanelCommand::ChangeStopKey, "cmdChangeStopKey", "Change StopKey",
     "Click here to change StopKey, which is used to stop anything Klickwerk is doing.  You can also click Stop "
     "button, which does the same thing as pressing StopKey."},
    {PanelCommand::ResetStepCounter, "cmdResetStepCounter", "Reset step counter",
     "Click here to reset step counter."},
    {PanelCommand::ChangeSteps, "cmdChangeSteps", "Change number of steps", ""},
}};

// fraOptions's left edge when the panel opens, in twips; the panel is as
// much wider than the frame on the right.
inline constexpr double kOptionsFrameLeft = 60;

// Answers the main window's settings commands (App::seams): opening and
// hiding the panel and resetting the counter. The stop-key and step-count
// seams stay with their own frames.
void WireSettingsPanel(App& app);

// Fills the check boxes from the running settings and shows the panel at
// its place with tmrKeepAttached running.
void OpenSettingsPanel(App& app);
// A click on an option's check box: the running program takes its value at
// once, chkOnTop applies it to the main window, and the settings are saved.
void OptionClicked(App& app, Setting key);
// tmrKeepAttached's tick: hangs the panel centred on the main window's right edge.
void KeepSettingsPanelAttached(App& app);
// cmdHideOpt: saves the settings, slides fraOptions away, hides the panel and
// unlocks the main window's commands. Does nothing when the panel is not open.
void HideSettingsPanel(App& app);
// cmdResetStepCounter: on Yes to the question, the counter becomes 0.
void ResetStepCounter(App& app);
void RunPanelCommand(App& app, PanelCommand command);
