#pragma once
#include <string>

struct App;

// Shows `text` in status-bar panel 1 (and in a box when asked) and lets the
// blanking timer clear it after 2000 ms, 5000 ms for long messages, or the
// given duration.
void ShowStatus(App& app, const std::string& text, bool inBox = false, bool longDelay = false,
                int durationMs = 0);
// tmrBlank's tick.
void OnBlankTimer(App& app);
