#pragma once
// The hint panel fraDYK: one usage hint at a time from "\DYK.dat", quoting
// the main window's own captions through placeholders such as "$B1$".
struct App;

// Shows hint `number` (-1: one at random), wrapping past the last hint to
// the first when going `forward`, before the first to the last otherwise. A
// missing or empty hint file leaves the panel as it was and is logged.
void DidYouKnow(App& app, int number, bool forward);
// Centres the panel, shows it and fills it with a hint at random.
void ShowHintPanel(App& app);
// cmdDYKNext and cmdDYKPrev.
void NextHint(App& app);
void PreviousHint(App& app);
// chkDYK, "do not show hints at start-up", is the "DYK" setting turned round.
void DontShowHintsChanged(App& app);
// cmdDYKHide: keeps a "do not show" choice in the settings, hides the panel.
void HideHintPanel(App& app);
