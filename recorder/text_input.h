#pragma once
// frmTextInput, the keystroke-text editor: the user edits a step's
// Additional text with a reference of the language beside it and a window
// picker that inserts a window's title for the window commands.
#include <array>
#include <string>

struct App;

// The three reference labels: presses, releases, and the keys that need no
// release with the window commands.
std::array<std::string, 3> KeystrokeReference();

// Opens the editor over the main window with the Additional text of step
// `row` and returns when it closes. Confirming checks the text with RunTest,
// writes it into the step, clears the step's mark, checks it and saves the
// working copy.
void EditKeystrokeText(App& app, int row);
