#pragma once
// <windows.h> as every Windows-side file of the program includes it.
#include <windows.h>

// Macros of the system headers that share names with the program's seams:
// Yield() is empty and would hide Clock::Yield; VkKeyScan would become
// VkKeyScanA and turn InputDevice::VkKeyScan into a call of itself.
#undef Yield
#undef VkKeyScan
