#pragma once
// The one message loop of the user-interface thread, and the pass over
// pending messages that waits and loops make to keep the windows alive.
#include "platform/win32.h"

// Tab and the arrow keys move between the controls of this window, as in a
// dialog. Each window added keeps this for the rest of the run.
void AddKeyboardNavigationWindow(HWND window);

// Runs every pending message once. Returns false when the program was asked
// to quit; the request stays queued for the main loop.
bool PumpPendingMessages();

// Runs messages until the program is asked to quit; returns its exit code.
int RunMessageLoop();

// The loop of a modal window: runs messages, with the dialog keys of
// `dialog`, while `open` holds. A request to quit ends it and stays queued
// for the main loop.
void RunModalLoop(HWND dialog, const bool& open);
