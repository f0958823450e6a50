#pragma once
// RunTest, the press/release check of keystroke text: every key a text
// presses with "%" it must release with "$", and the other way round.
#include <string>

struct App;

// Returns the text, repaired when asked. `fix` false checks and, when counts
// differ, asks whether to repair; `fix` true repairs without asking by
// appending the missing halves at the very end, and says in the status line
// that the result wants checking. Texts with "%win" are never checked.
std::string RunTest(App& app, const std::string& text, bool fix);
