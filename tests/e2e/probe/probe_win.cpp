// probe.exe: a plain window that writes every key, character, mouse and
// window event it receives to a log file, one flushed line per event, so the
// end-to-end tests can see exactly what reached another program.
//
//   probe.exe --log <file> [--title <text>] [--rect x,y,w,h] [--ask <question>]
//
// --ask first shows the question in a Yes/No message box titled like the
// window and logs the answer, so the driver's message-box commands can be
// tested without the product.
// Every line ends with " t=<tick count>" so tests can also measure timing.
#include <windows.h>

#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace {

const char kClassName[] = "KlickwerkProbe";

struct Options {
    std::string logPath;
    std::string title = "Klickwerk Probe";
    std::string question;
    RECT rect{};
    bool hasRect = false;
};

HANDLE logFile = INVALID_HANDLE_VALUE;

// WriteFile without a user-space buffer: a reader sees each line at once.
void LogLine(const char* format, ...) {
    char text[600];
    va_list args;
    va_start(args, format);
    int length = vsnprintf(text, sizeof text - 32, format, args);
    va_end(args);
    if (length < 0) return;
    length = static_cast<int>(strlen(text));
    length += snprintf(text + length, sizeof text - length, " t=%lu\n", GetTickCount());
    DWORD written = 0;
    WriteFile(logFile, text, static_cast<DWORD>(length), &written, nullptr);
}

bool ParseRect(const char* text, RECT& rect) {
    int x, y, w, h;
    if (sscanf(text, "%d,%d,%d,%d", &x, &y, &w, &h) != 4 || w <= 0 || h <= 0) return false;
    rect = {x, y, x + w, y + h};
    return true;
}

bool ParseOptions(int argc, char** argv, Options& options) {
    for (int i = 1; i + 1 < argc; i += 2) {
        const std::string name = argv[i];
        if (name == "--log") {
            options.logPath = argv[i + 1];
        } else if (name == "--title") {
            options.title = argv[i + 1];
        } else if (name == "--ask") {
            options.question = argv[i + 1];
        } else if (name == "--rect") {
            if (!ParseRect(argv[i + 1], options.rect)) return false;
            options.hasRect = true;
        } else {
            return false;
        }
    }
    return !options.logPath.empty();
}

// Most of the screen, leaving a margin so the pointer can also leave the window.
RECT DefaultRect() {
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);
    return {width / 10, height / 10, width * 9 / 10, height * 9 / 10};
}

const char* KeyKind(UINT message) {
    switch (message) {
        case WM_KEYDOWN: return "key down";
        case WM_KEYUP: return "key up";
        case WM_SYSKEYDOWN: return "syskey down";
        default: return "syskey up";
    }
}

void LogKey(UINT message, WPARAM wParam, LPARAM lParam) {
    const unsigned scan = (lParam >> 16) & 0xFF;
    const unsigned extended = (lParam >> 24) & 1;
    const unsigned wasDown = (lParam >> 30) & 1;
    LogLine("%s vk=%u scan=%u ext=%u prev=%u", KeyKind(message), static_cast<unsigned>(wParam),
            scan, extended, wasDown);
}

void LogChar(const char* kind, WPARAM wParam) {
    const unsigned code = static_cast<unsigned>(wParam);
    if (code >= 32 && code < 127) {
        LogLine("%s %u '%c'", kind, code, static_cast<char>(code));
    } else {
        LogLine("%s %u", kind, code);
    }
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

void LogMouse(HWND window, const char* kind, POINT client, int wheelDelta, bool wheel) {
    POINT screen = client;
    ClientToScreen(window, &screen);
    if (wheel) {
        LogLine("mouse %s delta=%d x=%ld y=%ld sx=%ld sy=%ld", kind, wheelDelta, client.x, client.y,
                screen.x, screen.y);
    } else {
        LogLine("mouse %s x=%ld y=%ld sx=%ld sy=%ld", kind, client.x, client.y, screen.x, screen.y);
    }
}

POINT PointOf(LPARAM lParam) {
    return {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
}

void LogWheel(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    POINT client = PointOf(lParam);  // wheel messages carry screen coordinates
    ScreenToClient(window, &client);
    const char* kind = message == WM_MOUSEWHEEL ? "wheel" : "hwheel";
    LogMouse(window, kind, client, GET_WHEEL_DELTA_WPARAM(wParam), true);
}

void LogSize(WPARAM wParam, LPARAM lParam) {
    const char* state = "restored";
    if (wParam == SIZE_MINIMIZED) state = "minimized";
    if (wParam == SIZE_MAXIMIZED) state = "maximized";
    LogLine("size %s w=%u h=%u", state, LOWORD(lParam), HIWORD(lParam));
}

void LogActivate(WPARAM wParam) {
    const char* state = "inactive";
    if (LOWORD(wParam) == WA_ACTIVE) state = "active";
    if (LOWORD(wParam) == WA_CLICKACTIVE) state = "clickactive";
    LogLine("activate %s", state);
}

void PaintTitle(HWND window) {
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(window, &paint);
    char title[256];
    GetWindowTextA(window, title, sizeof title);
    RECT client;
    GetClientRect(window, &client);
    DrawTextA(dc, title, -1, &client, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    EndPaint(window, &paint);
}

bool HandleInputMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_KEYDOWN:
        case WM_KEYUP:
        case WM_SYSKEYDOWN:
        case WM_SYSKEYUP:
            LogKey(message, wParam, lParam);
            return false;  // the default handling of Alt keys stays intact
        case WM_CHAR: LogChar("char", wParam); return true;
        case WM_SYSCHAR: LogChar("syschar", wParam); return false;
        case WM_MOUSEWHEEL:
        case WM_MOUSEHWHEEL: LogWheel(window, message, wParam, lParam); return true;
        default: break;
    }
    if (const char* kind = MouseKind(message)) {
        LogMouse(window, kind, PointOf(lParam), 0, false);
        return true;
    }
    return false;
}

LRESULT CALLBACK ProbeProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (HandleInputMessage(window, message, wParam, lParam)) return 0;
    switch (message) {
        case WM_SIZE: LogSize(wParam, lParam); break;
        case WM_MOVE:
            LogLine("move x=%d y=%d", static_cast<short>(LOWORD(lParam)),
                    static_cast<short>(HIWORD(lParam)));
            break;
        case WM_ACTIVATE: LogActivate(wParam); break;
        case WM_ACTIVATEAPP: LogLine("activateapp %d", wParam ? 1 : 0); break;
        case WM_SETFOCUS: LogLine("focus set"); break;
        case WM_KILLFOCUS: LogLine("focus lost"); break;
        case WM_CLOSE: LogLine("close"); break;
        case WM_PAINT: PaintTitle(window); return 0;
        case WM_DESTROY:
            LogLine("destroy");
            PostQuitMessage(0);
            return 0;
        default: break;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

HWND CreateProbeWindow(HINSTANCE instance, const Options& options) {
    WNDCLASSA windowClass{};
    windowClass.style = CS_DBLCLKS | CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = ProbeProc;
    windowClass.hInstance = instance;
    windowClass.hCursor = LoadCursor(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    windowClass.lpszClassName = kClassName;
    RegisterClassA(&windowClass);
    const RECT rect = options.hasRect ? options.rect : DefaultRect();
    return CreateWindowExA(0, kClassName, options.title.c_str(), WS_OVERLAPPEDWINDOW, rect.left,
                           rect.top, rect.right - rect.left, rect.bottom - rect.top, nullptr,
                           nullptr, instance, nullptr);
}

void LogReady(HWND window) {
    RECT client;
    GetClientRect(window, &client);
    POINT origin{0, 0};
    ClientToScreen(window, &origin);
    char title[256];
    GetWindowTextA(window, title, sizeof title);
    LogLine("ready pid=%lu hwnd=%p client=%ld,%ld,%ld,%ld screen=%d,%d title=%s",
            GetCurrentProcessId(), static_cast<void*>(window), origin.x, origin.y, client.right,
            client.bottom, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN), title);
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE, LPSTR, int) {
    Options options;
    if (!ParseOptions(__argc, __argv, options)) {
        MessageBoxA(nullptr, "probe.exe --log <file> [--title <text>] [--rect x,y,w,h] [--ask <question>]",
                    "Klickwerk Probe", MB_OK);
        return 2;
    }
    logFile = CreateFileA(options.logPath.c_str(), FILE_APPEND_DATA,
                          FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                          OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (logFile == INVALID_HANDLE_VALUE) return 3;
    if (!options.question.empty()) {
        const int answer = MessageBoxA(nullptr, options.question.c_str(), options.title.c_str(),
                                       MB_YESNO | MB_ICONQUESTION);
        LogLine("answer %s", answer == IDYES ? "yes" : "no");
    }
    HWND window = CreateProbeWindow(instance, options);
    if (!window) return 4;
    ShowWindow(window, SW_SHOWNORMAL);
    UpdateWindow(window);
    SetForegroundWindow(window);
    LogReady(window);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    LogLine("exit");
    CloseHandle(logFile);
    return 0;
}
