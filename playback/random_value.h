#pragma once
// Random values in numeric cells: "RND(first, span, rounding)" is
// first + span × r with r uniform in [0, 1), evaluated afresh at every use.
#include <string>

struct App;

// A fraction in [0, 1) from the program's one generator, seeded from the
// clock at its first use.
double DrawRandom(App& app);

bool IsRnd(const std::string& text);
// The value as text ("0" for no RND expression or a wrong field count, which
// also shows a message naming the step).
std::string RndEval(App& app, const std::string& text, int stepNumber);
// RndEval's value as a number, read with the user's decimal separator.
double RndNumber(App& app, const std::string& text, int stepNumber);
