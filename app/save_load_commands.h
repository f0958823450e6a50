#pragma once
// The "save" and "load" toolbar commands: a script file is a copy of the
// working copy, and loading copies the chosen file over the working copy.
#include <string>
#include <vector>

struct App;

void SaveCommand(App& app);
void LoadCommand(App& app);

// The name the save dialog proposes from the names in "\Scripts\*.kwf", in
// the order the system lists them: "Klickwerk" + the next number, at least
// three digits. Raises Invalid procedure call for a name shorter than seven
// characters.
std::string ProposeScriptName(const std::vector<std::string>& names);
