#pragma once
// Locking the main window for a run and the Stop command that unlocks it.
struct App;

// The toolbar's "save", "load" and "settings" commands.
void SetToolbarEnabled(App& app, bool enabled);
// cmdRecord's enabled state: without the hook library it stays disabled.
void SetRecordEnabled(App& app, bool enabled);
// Disables what must not be used while a script plays and arms the stop key.
void LockForRun(App& app);
// cmdStop's click: requests the stop and returns the window to idle.
void StopButton(App& app);
void DeselectAllRows(App& app);
