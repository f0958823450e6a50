#pragma once
struct App;

// cmdStart's click: plays the script in the grid from the first to the last
// checked step, once or while the repeat toggle is on, and returns when the
// run is over. Automatic starts run the same handler.
void StartButton(App& app);
