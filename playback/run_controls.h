#pragma once
// Locking the main window's commands while a run, a recording or a dialog
// is active, and the Stop command that unlocks them.
struct App;

// Sets the enabled state of the "settings" toolbar button and the play and
// record buttons; with `all` also of the other toolbar buttons except "exit",
// the grid and the status bar.
void EnableControls(App& app, bool enabled, bool all);

// The toolbar's "save", "load" and "settings" commands.
void SetToolbarEnabled(App& app, bool enabled);
// cmdRecord's enabled state: without the hook library it stays disabled.
void SetRecordEnabled(App& app, bool enabled);
// Disables what must not be used while a script plays and arms the stop key.
void LockForRun(App& app);
// cmdStop's click: requests the stop and returns the window to idle.
void StopButton(App& app);
void DeselectAllRows(App& app);
