#pragma once
#include <string>

struct App;

inline constexpr const char* kWindows95Name = "Microsoft Windows 95";

// The step wait: returns after `seconds` or as soon as a stop is requested,
// keeping the window responsive and showing the countdown when it is on.
void Pause(App& app, double seconds);
// The countdown text for a remaining time in whole seconds ("hh:mm:ss").
std::string RemainingText(long seconds);
// The pointer guard's 100-ms tick: a mouse moved diagonally by the user
// lengthens the current wait.
void OnMouseSaverTimer(App& app);
