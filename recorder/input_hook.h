#pragma once
// InputHook: the program's side of "InHook.dll". The library is loaded once
// at start-up; a recording installs its hooks with the receiver IHRec and
// removes them when it ends; the main window's close frees the library.
struct App;

// A missing library leaves the record button disabled, without a word.
void LoadHookLibrary(App& app);
// Mouse hook first, then the keyboard's. A library without the "InitMouse"
// or "InitKeys" export raises "Can't find DLL entry point".
void StartHooks(App& app);
// Keyboard hook first, at the end of a recording.
void StopHooks(App& app);
// At the main window's close: mouse hook, keyboard hook, then the library;
// also when no recording ever ran.
void ReleaseHookLibrary(App& app);
