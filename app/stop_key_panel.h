#pragma once
// The panel fraStopKey that changes the stop key.
#include <string>

struct App;

// cmdStopKey(0): makes the named key the stop key and closes the panel.
void ChangeStopKey(App& app, const std::string& name);
void OpenStopKeyPanel(App& app);
// cmdStopKey(1).
void CloseStopKeyPanel(App& app);
// A key pressed in cmbStopKeys: Return accepts `chosenName`, Escape closes.
// True when the key was used and must be swallowed.
bool OnStopKeyListKey(App& app, int keyCode, const std::string& chosenName);
