#pragma once
// The stop key: its 20-ms poll and the panel that changes it.
#include <string>

struct App;

// tmrStop's tick: the stop key ends a recording or a run.
void OnStopTimer(App& app);
// cmdStopKey(0): makes the named key the stop key and closes the panel.
void ChangeStopKey(App& app, const std::string& name);
void OpenStopKeyPanel(App& app);
// cmdStopKey(1).
void CloseStopKeyPanel(App& app);
// A key pressed in cmbStopKeys: Return accepts `chosenName`, Escape closes.
// True when the key was used and must be swallowed.
bool OnStopKeyListKey(App& app, int keyCode, const std::string& chosenName);
