// How far repeated waits overshoot or fall short, timed on the performance
// counter: shared by the program's wait benchmark and the bare reference.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

// Runs wait() `count` times and prints "<name>(<seconds>) x <count>: mean
// error ..., worst ..." in milliseconds.
template <typename Wait>
void PrintWaitErrors(const char* name, int count, double seconds, Wait wait) {
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    std::vector<double> errors;
    for (int i = 0; i < count; ++i) {
        LARGE_INTEGER start, end;
        QueryPerformanceCounter(&start);
        wait();
        QueryPerformanceCounter(&end);
        errors.push_back(static_cast<double>(end.QuadPart - start.QuadPart) * 1000.0 /
                             static_cast<double>(frequency.QuadPart) - seconds * 1000);
    }
    double sum = 0;
    for (double error : errors) sum += error;
    const auto worst = std::max_element(errors.begin(), errors.end(),
                                        [](double a, double b) { return std::abs(a) < std::abs(b); });
    printf("%s(%g) x %d: mean error %+.2f ms, worst %+.2f ms\n", name, seconds, count, sum / count, *worst);
    fflush(stdout);
}
