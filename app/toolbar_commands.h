#pragma once
// The toolbar TB: its buttons and the commands behind them.
#include <string>

#include "core/main_view.h"

struct App;

struct ToolbarButton {
    const char* key;
    const char* caption;
    const char* toolTip;
    Control control;
};

// In toolbar order.
inline constexpr ToolbarButton kToolbarButtons[] = {
    {"save", "Save", "Save the script to a file", Control::ToolSave},
    {"load", "Load", "Load a script from a file", Control::ToolLoad},
    {"settings", "Settings", "Show the settings panel", Control::ToolSettings},
    {"about", "About", "About this program", Control::ToolAbout},
    {"help", "Help", "Open the help file", Control::ToolHelp},
    {"exit", "Exit", "Close the program", Control::ToolExit},
};

struct HelpMenuEntry {
    const char* key;
    const char* caption;
};

// The drop-down menu of the "help" button.
inline constexpr HelpMenuEntry kHelpMenu[] = {
    {"h1", "View Did You Know?"},
    {"h2", "View Help File"},
};

// The button a key belongs to ("h1" and "h2" to "help"); null for unknown keys.
const ToolbarButton* ToolbarButtonOf(const std::string& key);

// A click on a toolbar button or help-menu entry, by key. cmdHelp in the
// window sends "h2".
void ToolbarClick(App& app, const std::string& key);
