// wait_bench.exe: how exactly the program's responsive wait keeps time.
// Runs Wait(0.05) a hundred times through the program's own clock, with the
// main window's polling timers (20, 50 and 100 ms) firing inside the waits as
// they do during a run, and prints the mean and the worst error.
//
//   wait_bench.exe [count] [seconds] [timer resolution in ms]
//
// A timer resolution given asks the system for it (timeBeginPeriod) for the
// length of the measurement.
#include "platform/platform_win.h"

#include <timeapi.h>

#include <algorithm>
#include <cstdlib>

#include "wait_errors.h"

namespace {

constexpr UINT kTimerIntervalsMs[] = {20, 50, 100};

LRESULT CALLBACK IgnoreTicks(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_TIMER) return 0;
    return DefWindowProcA(window, message, wParam, lParam);
}

// A hidden window whose timers wake every wait as the main window's do.
HWND CreateTickingWindow() {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = IgnoreTicks;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = "KlickwerkWaitBench";
    RegisterClassA(&windowClass);
    HWND window = CreateWindowExA(0, windowClass.lpszClassName, "", 0, 0, 0, 0, 0, nullptr, nullptr,
                                  windowClass.hInstance, nullptr);
    for (UINT id = 0; id < 3; ++id) SetTimer(window, id + 1, kTimerIntervalsMs[id], nullptr);
    return window;
}

}  // namespace

int main(int argc, char** argv) {
    const int count = argc > 1 ? std::max(1, atoi(argv[1])) : 100;
    const double seconds = argc > 2 ? atof(argv[2]) : 0.05;
    const UINT period = argc > 3 ? static_cast<UINT>(atoi(argv[3])) : 0;
    if (period) timeBeginPeriod(period);
    HWND window = CreateTickingWindow();
    WinClock clock;
    const bool stop = false;
    PrintWaitErrors("Wait", count, seconds, [&] { clock.Wait(seconds, stop); });
    if (period) timeEndPeriod(period);
    DestroyWindow(window);
    return 0;
}
