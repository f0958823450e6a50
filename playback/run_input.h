#pragma once
// The run's key and mouse-button events. Each goes out through the input
// device, and what it leaves held down is remembered, so that a run that
// ends, however it ends, never leaves the user with a key or button down.
#include <cstdint>

struct App;

// keybd_event of the key, with scan code 0.
void SendKey(App& app, std::uint8_t virtualKey, std::uint32_t flags);
// mouse_event with these flags and coordinates.
void SendMouse(App& app, std::uint32_t flags, int dx, int dy);
// Lets go of every key and button the run still holds, the last pressed
// first; a button is released where the pointer is.
void ReleaseHeldInput(App& app);
