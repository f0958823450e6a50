#pragma once
// The step-count frame fraSteps: sets how many rows the grid has. The saved
// steps are read back into the new rows in order; rows beyond them are new
// default steps.
struct App;

// cmdChangeSteps: shows the frame in the grid's place with the row count in
// txtSteps, all of it selected.
void OpenStepCount(App& app);
// txtSteps changed: a text that is not a number loses its last character.
void StepCountTextChanged(App& app);
// A key pressed in txtSteps: Enter accepts, Esc cancels; true when the key
// was used and must be swallowed.
bool OnStepCountKey(App& app, int keyCode);
// cmdSteps(0): rebuilds the grid with the number typed (its integer part).
void StepChange(App& app);
// cmdSteps(1): closes the frame without a change.
void CloseStepCount(App& app);
