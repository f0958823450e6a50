// reference.exe: a bare Wine program with none of Klickwerk's code, the
// yardstick that the benchmarks measure beside the program's own figures.
//
//   reference.exe sleep [count] [seconds]   Sleep() timed as wait_bench times
//                                           the program's wait
//   reference.exe window                    a bare window, idle until closed
#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

#include "wait_errors.h"

namespace {

LRESULT CALLBACK BareWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_DESTROY) PostQuitMessage(0);
    return DefWindowProcA(window, message, wParam, lParam);
}

int ShowBareWindow() {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = BareWindowProc;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.hCursor = LoadCursor(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    windowClass.lpszClassName = "KlickwerkReference";
    RegisterClassA(&windowClass);
    HWND window = CreateWindowExA(0, windowClass.lpszClassName, "Reference Window", WS_OVERLAPPEDWINDOW, 100, 100,
                                  460, 440, nullptr, nullptr, windowClass.hInstance, nullptr);
    if (!window) return 3;
    ShowWindow(window, SW_SHOWNORMAL);
    UpdateWindow(window);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) DispatchMessageA(&message);
    return 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc > 1 && strcmp(argv[1], "window") == 0) return ShowBareWindow();
    if (argc > 1 && strcmp(argv[1], "sleep") == 0) {
        const int count = argc > 2 ? std::max(1, atoi(argv[2])) : 100;
        const double seconds = argc > 3 ? atof(argv[3]) : 0.05;
        PrintWaitErrors("Sleep", count, seconds, [&] { Sleep(static_cast<DWORD>(seconds * 1000)); });
        return 0;
    }
    fprintf(stderr, "usage: reference.exe sleep [count] [seconds] | window\n");
    return 1;
}
