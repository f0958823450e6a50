// probe.exe: a plain window that writes every key, character, mouse and
// window event it receives to a log file, one flushed line per event, so the
// end-to-end tests can see exactly what reached another program.
//
//   probe.exe --log <file> [--title <text>] [--rect x,y,w,h]
//
// Each line is an event's kind and its numbers, then " t=<microseconds>" of
// the performance counter when the window received it (under Wine the
// counter is the host's CLOCK_MONOTONIC_RAW, so host and probe share a clock):
// "down <vk>", "up <vk>", "char <code>", "<mouse kind> <screen x> <screen y>",
// "size <state> <width> <height>", "moved <x> <y>", "close", and first
// "ready <pid> <client x> <client y> <width> <height>".
#include <windows.h>

#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <string>

namespace {

HANDLE logFile = INVALID_HANDLE_VALUE;

unsigned long long Microseconds() {
    LARGE_INTEGER counter, frequency;
    QueryPerformanceCounter(&counter);
    QueryPerformanceFrequency(&frequency);
    const auto ticks = static_cast<unsigned long long>(counter.QuadPart);
    const auto perSecond = static_cast<unsigned long long>(frequency.QuadPart);
    return ticks / perSecond * 1000000 + ticks % perSecond * 1000000 / perSecond;
}

// WriteFile without a user-space buffer: a reader sees each line at once.
void LogLine(const char* format, ...) {
    char text[256];
    va_list args;
    va_start(args, format);
    int length = vsnprintf(text, sizeof text - 32, format, args);
    va_end(args);
    if (length < 0) return;
    length = static_cast<int>(strlen(text));
    length += snprintf(text + length, sizeof text - length, " t=%llu\n", Microseconds());
    DWORD written = 0;
    WriteFile(logFile, text, static_cast<DWORD>(length), &written, nullptr);
}

const char* MouseKind(UINT message) {
    switch (message) {
        case WM_MOUSEMOVE: return "move";
        case WM_LBUTTONDOWN: return "ldown";
        case WM_LBUTTONUP: return "lup";
        case WM_LBUTTONDBLCLK: return "ldblclk";
        case WM_RBUTTONDOWN: return "rdown";
        case WM_RBUTTONUP: return "rup";
        case WM_RBUTTONDBLCLK: return "rdblclk";
        case WM_MBUTTONDOWN: return "mdown";
        case WM_MBUTTONUP: return "mup";
        case WM_MBUTTONDBLCLK: return "mdblclk";
        default: return nullptr;
    }
}

const char* SizeState(WPARAM kind) {
    if (kind == SIZE_MINIMIZED) return "minimized";
    return kind == SIZE_MAXIMIZED ? "maximized" : "restored";
}

LRESULT CALLBACK ProbeProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const int low = static_cast<short>(LOWORD(lParam));
    const int high = static_cast<short>(HIWORD(lParam));
    if (const char* kind = MouseKind(message)) {
        POINT screen{low, high};
        ClientToScreen(window, &screen);
        LogLine("%s %ld %ld", kind, screen.x, screen.y);
        return 0;
    }
    switch (message) {
        // System keys too: keys held with Alt arrive as those. Their default
        // handling stays intact.
        case WM_KEYDOWN:
        case WM_SYSKEYDOWN: LogLine("down %u", static_cast<unsigned>(wParam)); break;
        case WM_KEYUP:
        case WM_SYSKEYUP: LogLine("up %u", static_cast<unsigned>(wParam)); break;
        case WM_CHAR: LogLine("char %u", static_cast<unsigned>(wParam)); return 0;
        case WM_SYSCHAR: LogLine("char %u", static_cast<unsigned>(wParam)); break;
        case WM_SIZE: LogLine("size %s %d %d", SizeState(wParam), LOWORD(lParam), HIWORD(lParam)); break;
        case WM_MOVE: LogLine("moved %d %d", low, high); break;
        case WM_CLOSE: LogLine("close"); break;
        case WM_DESTROY: PostQuitMessage(0); return 0;
        default: break;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
    std::string logPath;
    std::string title = "Klickwerk Probe";
    int x = 100, y = 100, width = 600, height = 400;
    for (int i = 1; i + 1 < __argc; i += 2) {
        const std::string name = __argv[i];
        if (name == "--log") logPath = __argv[i + 1];
        if (name == "--title") title = __argv[i + 1];
        if (name == "--rect") sscanf(__argv[i + 1], "%d,%d,%d,%d", &x, &y, &width, &height);
    }
    logFile = CreateFileA(logPath.c_str(), FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                          nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (logFile == INVALID_HANDLE_VALUE) return 2;

    WNDCLASSA windowClass{};
    windowClass.style = CS_DBLCLKS;
    windowClass.lpfnWndProc = ProbeProc;
    windowClass.hInstance = instance;
    windowClass.hCursor = LoadCursor(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    windowClass.lpszClassName = "KlickwerkProbe";
    RegisterClassA(&windowClass);
    HWND window = CreateWindowExA(0, windowClass.lpszClassName, title.c_str(), WS_OVERLAPPEDWINDOW, x, y, width,
                                  height, nullptr, nullptr, instance, nullptr);
    if (!window) return 3;
    ShowWindow(window, SW_SHOWNORMAL);
    UpdateWindow(window);
    SetForegroundWindow(window);

    RECT client;
    GetClientRect(window, &client);
    POINT origin{0, 0};
    ClientToScreen(window, &origin);
    LogLine("ready %lu %ld %ld %ld %ld", GetCurrentProcessId(), origin.x, origin.y, client.right, client.bottom);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    CloseHandle(logFile);
    return 0;
}
