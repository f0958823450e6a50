#pragma once
// <windows.h> as every Windows-side file of the program includes it.
#include <windows.h>

// winbase.h defines Yield() as an empty macro, which would hide Clock::Yield.
#undef Yield
