#pragma once
// The messages the hook library posts to the receiver IHRec, handed to the
// recording session as its mouse and key events.
#include "platform/win32.h"

struct App;

// True when the message was one of the recorder's.
bool DeliverRecordedInput(App& app, UINT message, WPARAM wParam, LPARAM lParam);
