#pragma once
// The parts the program's behaviour works through on Windows: the system
// seams and the windows behind the view interfaces. The program and the
// Windows benchmarks build the same parts.
#include "app/about_frame_win.h"
#include "app/file_dialogs_win.h"
#include "app/main_window_win.h"
#include "app/message_boxes_win.h"
#include "app/step_list_win.h"
#include "core/app.h"
#include "platform/hook_library_win.h"
#include "platform/platform_win.h"
#include "recorder/text_input_dialog_win.h"
#include "script/step_grid.h"
#include "settings_ui/settings_panel_win.h"
#include "updates/updates_dialog_win.h"

struct WinSystem {
    WinFiles files;
    WinSettingsFile ini;
    WinRegistry registry;
    WinShell shell;
    WinInput input;
    WinWindows windows;
    WinClock clock;
    WinOsInfo osInfo;
    WinHookLibrary hooks;
    WinInternet internet;
    Platform platform{files, ini, registry, shell, input, windows, clock, osInfo, hooks, internet};
};

struct WinViews {
    StepGrid steps;
    StepListWin list{steps};
    AboutFrameWin about;
    CellEditorsWin cells;
    HintFrameWin hint;
    MainWindow main{list, about, cells, hint};
    MessageBoxesWin boxes;
    FileDialogsWin dialogs;
    TextInputDialogWin textInput;
    UpdatesDialogWin updates;
    SettingsPanelWin settingsPanel;
    Views views{steps, main, boxes, dialogs, about, textInput, cells, hint, main.StepCountFrame(), updates, settingsPanel};
};
