// kwdriver.exe: reads and operates another program's windows from outside,
// the way accessibility tools do, and prints what it found as JSON.
//
//   kwdriver [--wait <ms>] <command> [arguments]
//     windows                    titled top-level windows and open pop-up menus
//     window <target>            states, rectangle, client size and screen origin
//     controls <target>          child windows with class, text and states;
//                                buttons also with their check state
//                                (BM_GETCHECK) and the type of their style
//     grid <target> [first [count]]  the list view's rows (all, or `count`
//                                from row `first`, 1-based): cells, their
//                                screen rectangles and the check mark
//     status <target>            the status bar's panels: text, screen rectangle
//     toolbar <target>           the toolbar's buttons: caption, enabled state,
//                                screen rectangle
//     toolclick <target> <caption>  presses a toolbar button by its caption
//     click <target> <button>    presses a visible, enabled push button by its text
//     select <target> [row ...]  selects exactly these grid rows (1-based)
//     syscommand <target> minimize|restore  what the caption buttons send
//     redraw <target>            repaints the window and all its children now
//     foreground <target>        makes the window the foreground window
//     close <target>             posts WM_CLOSE
//     endsession <target>        what logging off sends: WM_QUERYENDSESSION,
//                                then WM_ENDSESSION when the window agreed
//     presskey <target> <vk> <button>  holds the virtual key down until the
//                                push button is enabled; prints the time
//     follow <target> <panel> <count>  watches a panel that hangs centred on
//                                the window's right edge: after each of the
//                                next <count> moves or resizes of the window,
//                                the time until the panel is there again;
//                                prints a line {"watching":true} when it begins
//     startup <exe>              how a running program was told to show its
//                                window: STARTUPINFO's flags and show command
//     showtime <class> <exe> [arguments]  starts the program, prints the time
//                                until a window of that class is shown, ends it
//     keysdown                   the virtual keys and mouse buttons that are
//                                down now, as GetAsyncKeyState sees them
//     resources <exe>            a running program's kernel handles, GDI and
//                                USER objects, private bytes and working set
//     msgbox [--pid <pid>]       the first visible message box or dialog,
//                                with its owner's window class
//     answer <button> [--pid <pid>]  presses a message-box button by its text
//
// A target is an exact window title or "hwnd=<decimal handle>" (as "windows"
// prints it). Exit code 0 on success, 2 when the window or control was not
// found (retried until the --wait time is over), 1 on a usage error or a
// failed read.
#include <windows.h>

#include <commctrl.h>
#include <timeapi.h>
#include <tlhelp32.h>
#include <winternl.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "process_counters.h"
#include "remote_controls.h"

namespace {

enum ExitCode { kOk = 0, kFailed = 1, kNotFound = 2 };

struct Result {
    int code = kOk;
    std::string text;  // JSON on success, a reason otherwise
};

using Args = std::vector<std::string>;

Result Fail(int code, const std::string& reason) { return {code, reason}; }

// JSON pieces. Texts come from other programs' controls in the ANSI code page
// and are written as UTF-8.
std::string Text(const std::string& ansi) {
    std::wstring wide(ansi.size(), L'\0');
    wide.resize(MultiByteToWideChar(CP_ACP, 0, ansi.data(), static_cast<int>(ansi.size()), wide.data(),
                                    static_cast<int>(wide.size())));
    std::string utf8(wide.size() * 3, '\0');
    utf8.resize(WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), utf8.data(),
                                    static_cast<int>(utf8.size()), nullptr, nullptr));
    std::string quoted = "\"";
    for (unsigned char c : utf8) {
        char escape[8] = {static_cast<char>(c), '\0'};
        if (c < 0x20) snprintf(escape, sizeof escape, "\\u%04x", c);
        if (c == '"' || c == '\\') quoted += '\\';
        quoted += escape;
    }
    return quoted + '"';
}

std::string Number(long long value) { return std::to_string(value); }

std::string Milliseconds(double ms) {
    char text[32];
    snprintf(text, sizeof text, "%.2f", ms);
    return text;
}
std::string Flag(bool value) { return value ? "true" : "false"; }

std::string List(const std::vector<std::string>& items) {
    std::string list;
    for (const std::string& item : items) list += (list.empty() ? "" : ",") + item;
    return "[" + list + "]";
}

using Fields = std::vector<std::pair<const char*, std::string>>;

std::string Object(const Fields& fields) {
    std::string object;
    for (const auto& [key, value] : fields) {
        object += (object.empty() ? "\"" : ",\"") + std::string(key) + "\":" + value;
    }
    return "{" + object + "}";
}

std::string Rect(const RECT& rect) {
    return List({Number(rect.left), Number(rect.top), Number(rect.right), Number(rect.bottom)});
}

// Windows ---------------------------------------------------------------------

// The window's text as the window itself reports it, with a time limit so a
// busy target cannot hang the driver; then the title the system keeps.
std::string WindowText(HWND window) {
    DWORD_PTR length = 0;
    if (!SendMessageTimeoutA(window, WM_GETTEXTLENGTH, 0, 0, SMTO_ABORTIFHUNG, 3000, &length)) {
        char text[1024];
        return std::string(text, static_cast<size_t>(GetWindowTextA(window, text, sizeof text)));
    }
    std::string text(length + 1, '\0');
    DWORD_PTR copied = 0;
    SendMessageTimeoutA(window, WM_GETTEXT, length + 1, reinterpret_cast<LPARAM>(text.data()), SMTO_ABORTIFHUNG,
                        3000, &copied);
    text.resize(copied);
    return text;
}

std::string ClassOf(HWND window) {
    char name[256];
    return std::string(name, static_cast<size_t>(GetClassNameA(window, name, sizeof name)));
}

std::string WithoutMnemonics(const std::string& text) {
    std::string plain;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '&' && i + 1 < text.size()) ++i;  // "&&" stands for one ampersand
        plain += text[i];
    }
    return plain;
}

BOOL CALLBACK CollectWindow(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

// Top-level windows when parent is null.
std::vector<HWND> Windows(HWND parent) {
    std::vector<HWND> windows;
    if (parent) EnumChildWindows(parent, CollectWindow, reinterpret_cast<LPARAM>(&windows));
    else EnumWindows(CollectWindow, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

// The window that has the keyboard focus in the thread of `window`.
HWND FocusOf(HWND window) {
    GUITHREADINFO info{};
    info.cbSize = sizeof info;
    return GetGUIThreadInfo(GetWindowThreadProcessId(window, nullptr), &info) ? info.hwndFocus : nullptr;
}

// A button tells its kind by its style and, as check boxes do, its check
// state by BM_GETCHECK.
void DescribeButton(HWND button, Fields& fields) {
    DWORD_PTR checked = 0;
    SendMessageTimeoutA(button, BM_GETCHECK, 0, 0, SMTO_ABORTIFHUNG, 3000, &checked);
    fields.emplace_back("checked", Number(static_cast<long long>(checked)));
    fields.emplace_back("buttonType", Number(GetWindowLongA(button, GWL_STYLE) & BS_TYPEMASK));
}

std::string Describe(HWND window) {
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    RECT rect{};
    GetWindowRect(window, &rect);
    Fields fields{{"hwnd", Number(reinterpret_cast<INT_PTR>(window))}, {"pid", Number(processId)},
                  {"class", Text(ClassOf(window))}, {"text", Text(WindowText(window))},
                  {"visible", Flag(IsWindowVisible(window))}, {"enabled", Flag(IsWindowEnabled(window))},
                  {"focused", Flag(FocusOf(window) == window)}, {"rect", Rect(rect)}};
    if (_stricmp(ClassOf(window).c_str(), "Button") == 0) DescribeButton(window, fields);
    return Object(fields);
}

// Visible windows win over hidden ones with the same title.
HWND FindTopLevel(const std::string& target) {
    if (target.rfind("hwnd=", 0) == 0) {
        HWND window = reinterpret_cast<HWND>(static_cast<INT_PTR>(strtoll(target.c_str() + 5, nullptr, 10)));
        return IsWindow(window) ? window : nullptr;
    }
    HWND hidden = nullptr;
    for (HWND window : Windows(nullptr)) {
        if (WindowText(window) != target) continue;
        if (IsWindowVisible(window)) return window;
        if (!hidden) hidden = window;
    }
    return hidden;
}

// The first descendant of the class whose text, without mnemonics and in any
// case, is `text`; any text when it is empty.
// With `usable`, only a visible and enabled control: the one a user could press.
HWND FindDescendant(HWND parent, const char* className, const std::string& text = "", bool usable = false) {
    for (HWND window : Windows(parent)) {
        if (_stricmp(ClassOf(window).c_str(), className) == 0 &&
            (text.empty() || _stricmp(WithoutMnemonics(WindowText(window)).c_str(), text.c_str()) == 0) &&
            (!usable || (IsWindowVisible(window) && IsWindowEnabled(window)))) {
            return window;
        }
    }
    return nullptr;
}

// WM_COMMAND with the control's id is what a click on it sends; unlike
// BM_CLICK it does not depend on which window has the focus.
void PostClick(HWND parent, int id, HWND control) {
    PostMessageA(parent, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED), reinterpret_cast<LPARAM>(control));
}

// Commands on a window ---------------------------------------------------------

Result ShowWindowState(HWND window, const Args&) {
    RECT rect{}, client{};
    GetWindowRect(window, &rect);
    GetClientRect(window, &client);
    POINT origin{};
    ClientToScreen(window, &origin);
    return {kOk, Object({{"visible", Flag(IsWindowVisible(window))}, {"minimized", Flag(IsIconic(window))},
                         {"maximized", Flag(IsZoomed(window))},
                         {"topmost", Flag(GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_TOPMOST)},
                         {"rect", Rect(rect)}, {"client", List({Number(client.right), Number(client.bottom)})},
                         {"clientOrigin", List({Number(origin.x), Number(origin.y)})}})};
}

Result ListControls(HWND window, const Args&) {
    std::vector<std::string> controls;
    for (HWND child : Windows(window)) controls.push_back(Describe(child));
    return {kOk, List(controls)};
}

Result ShowGrid(HWND window, const Args& args) {
    HWND listView = FindDescendant(window, WC_LISTVIEWA);
    std::vector<GridRow> rows;
    if (!listView) return Fail(kNotFound, "no list view in the window");
    const int first = args.size() > 2 ? atoi(args[2].c_str()) - 1 : 0;
    const int limit = args.size() > 3 ? atoi(args[3].c_str()) : INT_MAX;
    if (!ReadGrid(listView, rows, std::max(first, 0), limit)) return Fail(kFailed, "could not read the list view");
    std::vector<std::string> items;
    for (const GridRow& row : rows) {
        std::vector<std::string> cells, rects;
        for (const std::string& cell : row.cells) cells.push_back(Text(cell));
        for (const RECT& rect : row.rects) rects.push_back(Rect(rect));
        items.push_back(Object({{"cells", List(cells)}, {"checked", Flag(row.checked)}, {"rects", List(rects)}}));
    }
    return {kOk, List(items)};
}

Result ShowStatusBar(HWND window, const Args&) {
    HWND statusBar = FindDescendant(window, STATUSCLASSNAMEA);
    std::vector<StatusPanel> panels;
    if (!statusBar) return Fail(kNotFound, "no status bar in the window");
    if (!ReadStatusBar(statusBar, panels)) return Fail(kFailed, "could not read the status bar");
    std::vector<std::string> texts, rects;
    for (const StatusPanel& panel : panels) {
        texts.push_back(Text(panel.text));
        rects.push_back(Rect(panel.rect));
    }
    return {kOk, Object({{"panels", List(texts)}, {"rects", List(rects)}})};
}

// The toolbar's buttons, or the reason there are none.
Result ReadToolbarOf(HWND window, HWND& toolbar, std::vector<ToolbarButton>& buttons) {
    toolbar = FindDescendant(window, TOOLBARCLASSNAMEA);
    if (!toolbar) return Fail(kNotFound, "no toolbar in the window");
    if (!ReadToolbar(toolbar, buttons)) return Fail(kFailed, "could not read the toolbar");
    return {};
}

Result ShowToolbar(HWND window, const Args&) {
    HWND toolbar = nullptr;
    std::vector<ToolbarButton> buttons;
    Result read = ReadToolbarOf(window, toolbar, buttons);
    if (read.code != kOk) return read;
    std::vector<std::string> items;
    for (const ToolbarButton& button : buttons) {
        items.push_back(
            Object({{"text", Text(button.text)}, {"enabled", Flag(button.enabled)}, {"rect", Rect(button.rect)}}));
    }
    return {kOk, List(items)};
}

// A toolbar reports a click on a button to its parent with the toolbar's handle.
Result ClickToolbarButton(HWND window, const Args& args) {
    HWND toolbar = nullptr;
    std::vector<ToolbarButton> buttons;
    Result read = ReadToolbarOf(window, toolbar, buttons);
    if (read.code != kOk) return read;
    for (const ToolbarButton& button : buttons) {
        if (args.size() < 3 || WithoutMnemonics(button.text) != args[2]) continue;
        PostClick(GetParent(toolbar), button.id, toolbar);
        return {kOk, Object({{"pressed", Text(button.text)}})};
    }
    return Fail(kNotFound, "no such toolbar button");
}

Result ClickButton(HWND window, const Args& args) {
    // Of buttons with the same text, the one the user can press.
    HWND button = args.size() < 3 ? nullptr : FindDescendant(window, "Button", args[2], true);
    if (!button) return Fail(kNotFound, "no such button");
    PostClick(GetParent(button), GetDlgCtrlID(button), button);
    return {kOk, Object({{"pressed", Text(args[2])}})};
}

Result SelectRows(HWND window, const Args& args) {
    HWND listView = FindDescendant(window, WC_LISTVIEWA);
    if (!listView) return Fail(kNotFound, "no list view in the window");
    std::vector<int> rows;
    for (size_t i = 2; i < args.size(); ++i) rows.push_back(atoi(args[i].c_str()) - 1);
    if (!SelectGridRows(listView, rows)) return Fail(kFailed, "could not select the rows");
    return ShowGrid(window, {args[0], args[1]});  // all rows: the numbers given are no range
}

Result PostSysCommand(HWND window, const Args& args) {
    const std::string command = args.size() < 3 ? "" : args[2];
    if (command != "minimize" && command != "restore") return Fail(kFailed, "syscommand needs minimize or restore");
    PostMessageA(window, WM_SYSCOMMAND, command == "minimize" ? SC_MINIMIZE : SC_RESTORE, 0);
    return {kOk, Object({{"posted", Text(command)}})};
}

Result Redraw(HWND window, const Args& args) {
    const UINT everything = RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW;
    if (!RedrawWindow(window, nullptr, nullptr, everything)) return Fail(kFailed, "RedrawWindow failed");
    return ShowWindowState(window, args);
}

Result BringToFront(HWND window, const Args&) {
    return {kOk, Object({{"foreground", Flag(SetForegroundWindow(window))}})};
}

Result PostClose(HWND window, const Args&) {
    PostMessageA(window, WM_CLOSE, 0, 0);
    return {kOk, Object({{"closed", Number(reinterpret_cast<INT_PTR>(window))}})};
}

Result EndSession(HWND window, const Args&) {
    DWORD_PTR agreed = 0;
    SendMessageTimeoutA(window, WM_QUERYENDSESSION, 0, ENDSESSION_LOGOFF, SMTO_BLOCK, 10000, &agreed);
    if (agreed) SendMessageTimeoutA(window, WM_ENDSESSION, TRUE, ENDSESSION_LOGOFF, SMTO_BLOCK, 10000, nullptr);
    return {kOk, Object({{"agreed", Flag(agreed != 0)}})};
}

// Milliseconds on the performance counter since it was made.
class Stopwatch {
public:
    Stopwatch() {
        QueryPerformanceFrequency(&frequency_);
        QueryPerformanceCounter(&start_);
    }
    double Ms() const {
        LARGE_INTEGER now;
        QueryPerformanceCounter(&now);
        return static_cast<double>(now.QuadPart - start_.QuadPart) * 1000.0 / static_cast<double>(frequency_.QuadPart);
    }

private:
    LARGE_INTEGER frequency_, start_;
};

// Polls a condition every millisecond until it holds or the time is up: the
// poll adds about a millisecond at most to what the stopwatch shows.
template <typename Condition>
bool PollUntil(const Stopwatch& watch, Condition condition, double limitMs) {
    timeBeginPeriod(1);
    bool met = false;
    while (!(met = condition()) && watch.Ms() < limitMs) Sleep(1);
    timeEndPeriod(1);
    return met;
}

// Presses the key as a keyboard does (keybd_event also sets the asynchronous
// state that polling programs read). The key must find the button disabled (a
// run in progress) and end with it enabled again: the time between is how
// long the program took to stop.
Result PressKeyUntilEnabled(HWND window, const Args& args) {
    HWND button = args.size() < 4 ? nullptr : FindDescendant(window, "Button", args[3]);
    if (!button) return Fail(kNotFound, "no such button");
    if (IsWindowEnabled(button)) return Fail(kFailed, "the button is enabled already");
    const BYTE key = static_cast<BYTE>(strtoul(args[2].c_str(), nullptr, 10));
    const Stopwatch watch;
    keybd_event(key, 0, 0, 0);
    const bool enabled = PollUntil(watch, [&] { return IsWindowEnabled(button) != FALSE; }, 10000);
    const std::string ms = Milliseconds(watch.Ms());
    keybd_event(key, 0, KEYEVENTF_KEYUP, 0);
    if (!enabled) return Fail(kFailed, "the button stayed disabled");
    return {kOk, Object({{"ms", ms}})};
}

// The panel's left edge is the window's right edge and their middles are level.
bool HangsOnRightEdge(const RECT& window, const RECT& panel) {
    return panel.left == window.right && abs(panel.top + panel.bottom - window.top - window.bottom) <= 2;
}

Result FollowPanel(HWND window, const Args& args) {
    HWND panel = args.size() < 4 ? nullptr : FindTopLevel(args[2]);
    if (!panel) return Fail(kNotFound, "no such panel");
    const size_t count = strtoul(args[3].c_str(), nullptr, 10);
    const double kTimeLimitMs = 120000;
    const Stopwatch watch;
    RECT seen{}, side{};
    GetWindowRect(window, &seen);
    double movedAt = -1;  // the first change the panel has not followed yet
    std::vector<std::string> lags;
    timeBeginPeriod(1);
    printf("{\"watching\":true}\n");
    fflush(stdout);
    for (double at = watch.Ms(); lags.size() < count && at < kTimeLimitMs; at = watch.Ms()) {
        RECT current{};
        GetWindowRect(window, &current);
        GetWindowRect(panel, &side);
        if (!EqualRect(&current, &seen) && movedAt < 0) movedAt = at;
        seen = current;
        if (movedAt >= 0 && HangsOnRightEdge(current, side)) {
            lags.push_back(Milliseconds(at - movedAt));
            movedAt = -1;
        }
        Sleep(1);
    }
    timeEndPeriod(1);
    if (lags.size() < count) return Fail(kFailed, "the window did not move often enough, or the panel stayed behind");
    return {kOk, Object({{"lags", List(lags)}})};
}

Result ListKeysDown(const Args&) {
    std::vector<std::string> down;
    for (int key = 1; key < 255; ++key) {
        if (GetAsyncKeyState(key) & 0x8000) down.push_back(Number(key));
    }
    return {kOk, List(down)};
}

// Processes ------------------------------------------------------------------------

// Where a 64-bit process's parameters block keeps STARTUPINFO's dwFlags, with
// wShowWindow after it; the public header declares only the command line of it.
const SIZE_T kWindowFlagsOffset = 0xA4;

DWORD ProcessOf(const std::string& exe) {
    HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32 entry{};
    entry.dwSize = sizeof entry;
    DWORD processId = 0;
    for (BOOL more = Process32First(snapshot, &entry); more && !processId; more = Process32Next(snapshot, &entry)) {
        if (_stricmp(entry.szExeFile, exe.c_str()) == 0) processId = entry.th32ProcessID;
    }
    CloseHandle(snapshot);
    return processId;
}

Result ShowStartup(const Args& args) {
    const DWORD processId = args.size() < 2 ? 0 : ProcessOf(args[1]);
    if (!processId) return Fail(kNotFound, "no such process");
    HANDLE process = OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, processId);
    void* peb = process ? PebAddress(process) : nullptr;
    PEB block{};
    ULONG flags[2] = {};
    const bool read = peb && ReadProcessMemory(process, peb, &block, sizeof block, nullptr) &&
                      ReadProcessMemory(process, reinterpret_cast<char*>(block.ProcessParameters) + kWindowFlagsOffset,
                                        flags, sizeof flags, nullptr);
    if (process) CloseHandle(process);
    if (!read) return Fail(kFailed, "could not read the process parameters");
    return {kOk, Object({{"startupFlags", Number(flags[0])}, {"showWindow", Number(flags[1])}})};
}

bool ShowsWindowOfClass(DWORD processId, const std::string& className) {
    for (HWND window : Windows(nullptr)) {
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        if (owner == processId && IsWindowVisible(window) && ClassOf(window) == className) return true;
    }
    return false;
}

// Starts a program in its own folder, as a double click on it does, times it
// until a visible window of the class belongs to it, then ends it.
Result TimeUntilShown(const Args& args) {
    if (args.size() < 3) return Fail(kFailed, "showtime needs a window class and a program");
    std::string commandLine;
    for (size_t i = 2; i < args.size(); ++i) commandLine += "\"" + args[i] + "\" ";
    const std::string folder = args[2].substr(0, args[2].find_last_of("\\/") + 1);
    STARTUPINFOA startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION started{};
    const Stopwatch watch;
    if (!CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        folder.empty() ? nullptr : folder.c_str(), &startup, &started)) {
        return Fail(kFailed, "cannot start " + args[2]);
    }
    const bool shown = PollUntil(watch, [&] { return ShowsWindowOfClass(started.dwProcessId, args[1]); }, 60000);
    const std::string ms = Milliseconds(watch.Ms());
    TerminateProcess(started.hProcess, 0);
    WaitForSingleObject(started.hProcess, 10000);
    CloseHandle(started.hThread);
    CloseHandle(started.hProcess);
    if (!shown) return Fail(kFailed, "no window of class " + args[1] + " was shown");
    return {kOk, Object({{"ms", ms}})};
}

Result ShowResources(const Args& args) {
    const DWORD processId = args.size() < 2 ? 0 : ProcessOf(args[1]);
    if (!processId) return Fail(kNotFound, "no such process");
    ProcessCounters counters;
    std::string reason;
    if (!ReadProcessCounters(processId, counters, reason)) return Fail(kFailed, reason);
    return {kOk, Object({{"handles", Number(counters.handles)}, {"gdi", Number(counters.gdiObjects)},
                         {"user", Number(counters.userObjects)}, {"objectSource", Text(counters.objectSource)},
                         {"privateBytes", Number(static_cast<long long>(counters.privateBytes))},
                         {"workingSet", Number(static_cast<long long>(counters.workingSet))}})};
}

// Message boxes ------------------------------------------------------------------

DWORD PidOption(const Args& args) {
    for (size_t i = 1; i + 1 < args.size(); ++i) {
        if (args[i] == "--pid") return strtoul(args[i + 1].c_str(), nullptr, 10);
    }
    return 0;
}

// The first visible message box or other standard dialog, of the process when
// one is named.
HWND FirstDialog(const Args& args) {
    const DWORD processId = PidOption(args);
    for (HWND window : Windows(nullptr)) {
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        if (IsWindowVisible(window) && ClassOf(window) == "#32770" && (!processId || owner == processId)) return window;
    }
    return nullptr;
}

// The message text of a message box is the static control 0xFFFF; other
// dialogs get their longest static text.
std::string DialogText(HWND dialog) {
    std::string longest;
    for (HWND child : Windows(dialog)) {
        if (_stricmp(ClassOf(child).c_str(), "Static") != 0) continue;
        const std::string text = WindowText(child);
        if (GetDlgCtrlID(child) == 0xFFFF) return text;
        if (text.size() > longest.size()) longest = text;
    }
    return longest;
}

Result ShowMessageBox(const Args& args) {
    HWND dialog = FirstDialog(args);
    if (!dialog) return Fail(kNotFound, "no message box");
    DWORD processId = 0;
    GetWindowThreadProcessId(dialog, &processId);
    std::vector<std::string> buttons;
    for (HWND child : Windows(dialog)) {
        if (_stricmp(ClassOf(child).c_str(), "Button") == 0 && IsWindowVisible(child)) {
            buttons.push_back(Text(WithoutMnemonics(WindowText(child))));
        }
    }
    return {kOk, Object({{"hwnd", Number(reinterpret_cast<INT_PTR>(dialog))}, {"pid", Number(processId)},
                         {"title", Text(WindowText(dialog))}, {"text", Text(DialogText(dialog))},
                         {"owner", Text(ClassOf(GetWindow(dialog, GW_OWNER)))},
                         {"buttons", List(buttons)}})};
}

Result AnswerMessageBox(const Args& args) {
    HWND dialog = FirstDialog(args);
    if (!dialog) return Fail(kNotFound, "no message box");
    HWND button = args.size() < 2 ? nullptr : FindDescendant(dialog, "Button", args[1]);
    if (!button) return Fail(kFailed, "the message box has no such button");
    PostClick(dialog, GetDlgCtrlID(button), button);
    return {kOk, Object({{"pressed", Text(WithoutMnemonics(WindowText(button)))}})};
}

Result ListWindows(const Args&) {
    std::vector<std::string> windows;
    for (HWND window : Windows(nullptr)) {
        // Pop-up menus have no title but are worth seeing.
        if (!WindowText(window).empty() || ClassOf(window) == "#32768") windows.push_back(Describe(window));
    }
    return {kOk, List(windows)};
}

Result Run(const Args& args) {
    static const struct {
        const char* name;
        Result (*run)(const Args&);
    } kCommands[] = {
        {"windows", ListWindows}, {"keysdown", ListKeysDown}, {"startup", ShowStartup}, {"showtime", TimeUntilShown},
        {"resources", ShowResources}, {"msgbox", ShowMessageBox}, {"answer", AnswerMessageBox},
    };
    static const struct {
        const char* name;
        Result (*run)(HWND, const Args&);
    } kWindowCommands[] = {
        {"window", ShowWindowState}, {"controls", ListControls}, {"grid", ShowGrid},
        {"status", ShowStatusBar}, {"toolbar", ShowToolbar}, {"toolclick", ClickToolbarButton},
        {"click", ClickButton}, {"select", SelectRows}, {"syscommand", PostSysCommand},
        {"redraw", Redraw}, {"foreground", BringToFront}, {"close", PostClose}, {"endsession", EndSession},
        {"presskey", PressKeyUntilEnabled}, {"follow", FollowPanel},
    };
    for (const auto& command : kCommands) {
        if (args[0] == command.name) return command.run(args);
    }
    for (const auto& command : kWindowCommands) {
        if (args[0] != command.name) continue;
        if (args.size() < 2) return Fail(kFailed, args[0] + " needs a window");
        HWND window = FindTopLevel(args[1]);
        return window ? command.run(window, args) : Fail(kNotFound, "no window " + args[1]);
    }
    return Fail(kFailed, "unknown command " + args[0]);
}

}  // namespace

int main(int argc, char** argv) {
    Args args(argv + 1, argv + argc);
    DWORD waitMs = 0;
    if (args.size() >= 2 && args[0] == "--wait") {
        waitMs = strtoul(args[1].c_str(), nullptr, 10);
        args.erase(args.begin(), args.begin() + 2);
    }
    if (args.empty()) {
        fprintf(stderr, "usage: kwdriver [--wait ms] <command> [arguments]; the commands are listed in its source\n");
        return kFailed;
    }
    const DWORD start = GetTickCount();
    Result result = Run(args);
    while (result.code == kNotFound && GetTickCount() - start < waitMs) {
        Sleep(50);
        result = Run(args);
    }
    FILE* stream = result.code == kOk ? stdout : stderr;
    fprintf(stream, "%s\n", result.text.c_str());
    fflush(stream);
    return result.code;
}
