#pragma once
// The recording session: between two presses of cmdRecord (or the record
// button's press by the stop key) the receiver's mouse and key events fill
// in the grid's selected step, and the events that complete an action close
// it and move on to the next step.
struct App;

// cmdRecord's click ("RecordButton"): starts a recording when the caption is
// "RECORD", stops it when the caption ends with "TO STOP".
void RecordButton(App& app);
bool Recording(const App& app);
// cmdRecOptions's click: mnuRecMain with mnuRecBeginning and mnuRecSelected;
// choosing the unchecked entry writes "RecMode" at once.
void RecordOptionsButton(App& app);

// The receiver's events. Buttons: 1 left, 2 right, others other buttons;
// x and y are screen pixels.
void RecordMouseDown(App& app, int button, int x, int y);
void RecordMouseMove(App& app, int x, int y);
void RecordMouseUp(App& app, int button, int x, int y);
void RecordDoubleClick(App& app);
void RecordKeyDown(App& app, int virtualKey);
void RecordKeyUp(App& app, int virtualKey);

// SelNext: closes the current step and makes the next one current.
void SelNext(App& app);
