#pragma once
// The stop key's 20-ms poll.
struct App;

// tmrStop's tick: the stop key ends a recording or a run.
void OnStopTimer(App& app);
