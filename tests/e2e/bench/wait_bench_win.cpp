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
#include <cstdio>
#include <cstdlib>
#include <vector>

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

double Milliseconds(LARGE_INTEGER from, LARGE_INTEGER to, LARGE_INTEGER frequency) {
    return static_cast<double>(to.QuadPart - from.QuadPart) * 1000.0 / static_cast<double>(frequency.QuadPart);
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
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    std::vector<double> errors;
    for (int i = 0; i < count; ++i) {
        LARGE_INTEGER start, end;
        QueryPerformanceCounter(&start);
        clock.Wait(seconds, stop);
        QueryPerformanceCounter(&end);
        errors.push_back(Milliseconds(start, end, frequency) - seconds * 1000);
    }
    double sum = 0;
    for (double error : errors) sum += error;
    const auto worst = std::max_element(errors.begin(), errors.end(),
                                        [](double a, double b) { return std::abs(a) < std::abs(b); });
    if (period) timeEndPeriod(period);
    printf("Wait(%g) x %d: mean error %+.2f ms, worst %+.2f ms\n", seconds, count, sum / count, *worst);
    DestroyWindow(window);
    return 0;
}
