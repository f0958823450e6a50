#pragma once
struct App;

// The press handler of cmdRepeat: flips whole-script repetition and shows it.
void PressRepeatToggle(App& app);
