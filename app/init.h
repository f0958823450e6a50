#pragma once
// The main window's set-up at start-up.
struct App;
class StartupServices;

// Loads the hook library, builds the grid's columns and the fixed lists,
// sizes the window, loads the settings and, unless `skipWorkingCopy`, appends
// the rows of the working copy. An error ends it where it stands (label "Init").
void Init(App& app, bool skipWorkingCopy, StartupServices& services);
