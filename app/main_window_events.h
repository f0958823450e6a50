#pragma once
// Events of the main window itself that reach the behaviour: a click on a
// status-bar panel and a finished resize.
#include <array>

struct App;

struct StatusPanel {
    const char* key;  // empty for panels that take no clicks
    const char* toolTip;
};

// Panels 1 to 6 of the status bar SB, in order.
inline constexpr std::array<StatusPanel, 6> kStatusPanels = {{
    {"", "Information (general, warnings, errors, etc.)"},
    {"", "X-Coordinate"},
    {"", "Y-Coordinate"},
    {"stopkey", "Current StopKey.  Click here to change."},
    {"stepcounter", "Total clicks counter.  Click here to reset."},
    {"totalsteps", "Total number of steps.  Click here to change."},
}};

// A click on status-bar panel `panel` (1 to 6): the keyed panels run the
// settings panel's commands for the stop key, the clicks counter and the
// number of steps.
void StatusPanelClick(App& app, int panel);

// The main window was laid out anew: a visible hint frame is centred again.
void MainWindowResized(App& app);
// The main window was moved or resized: an open settings panel follows it at
// once, rather than at the next tick, before the window lays itself out.
void MainWindowMoved(App& app);
