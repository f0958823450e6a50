// kwdriver.exe: reads and operates another program's windows from outside,
// the way accessibility tools do, and prints what it found as JSON.
//
//   kwdriver [--wait <ms>] <command> [arguments]
//     windows [--all]            top-level windows (titled ones unless --all)
//     processes                  running processes with their command lines and
//                                start-up window states
//     window <target>            caption, rectangle, client size and screen
//                                origin, states
//     controls <target>          child windows with class, text and states
//     grid <target>              the first list view: headers, widths, cells,
//                                check marks and selection
//     status <target>            the status bar's panel texts, tool tips and
//                                rectangles on the screen
//     toolbar <target>           the toolbar's buttons: id, caption, states,
//                                screen rectangle
//     toolclick <target> <caption>  presses a toolbar button by its caption
//     resize <target> <w> <h>    gives the window a new outer size (pixels)
//     syscommand <target> minimize|maximize|restore
//                                what the caption buttons send
//     redraw <target>            repaints the window and all its children now
//     msgbox [--pid <pid>]       the first visible message box or dialog
//     answer <button> [--pid <pid>]  presses a message-box button by its text
//     click <target> <button>    presses a push button of a window by its text
//     close <target>             posts WM_CLOSE
//     foreground <target>        makes the window the foreground window
//     select <target> [row ...]  selects exactly these grid rows (1-based)
//     presskey <target> <vk> <button>  holds the virtual key down until the
//                                push button is enabled; prints the time
//
// A target is an exact window title, "pid=<Windows process id>" or
// "hwnd=<decimal handle>" (as "windows" prints it). Exit code
// 0 on success, 2 when the window or control was not found (retried until the
// --wait time is over), 1 on a usage error or a failed read.
#include <windows.h>
#include <commctrl.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

#include "control_read.h"
#include "json_writer.h"
#include "key_press.h"
#include "process_info.h"
#include "window_find.h"

namespace {

enum ExitCode { kOk = 0, kFailed = 1, kNotFound = 2 };

struct Result {
    int code = kOk;
    std::string text;  // JSON on success, a reason otherwise
};

using Args = std::vector<std::string>;

Result Fail(int code, const std::string& reason) { return {code, reason}; }

void WriteRect(JsonWriter& json, const RECT& rect) {
    json.BeginArray().Number(rect.left).Number(rect.top).Number(rect.right).Number(rect.bottom).EndArray();
}

void WriteWindowInfo(JsonWriter& json, const WindowInfo& info) {
    json.BeginObject();
    json.Key("hwnd").Number(reinterpret_cast<INT_PTR>(info.window));
    json.Key("pid").Number(info.processId);
    json.Key("id").Number(info.id);
    json.Key("class").String(info.className);
    json.Key("text").String(info.text);
    json.Key("visible").Bool(info.visible);
    json.Key("enabled").Bool(info.enabled);
    json.Key("rect");
    WriteRect(json, info.rect);
    json.EndObject();
}

Result ListWindows(const Args& args) {
    const bool all = args.size() > 1 && args[1] == "--all";
    JsonWriter json;
    json.BeginArray();
    for (HWND window : TopLevelWindows()) {
        const WindowInfo info = Describe(window);
        if (all || !info.text.empty()) WriteWindowInfo(json, info);
    }
    json.EndArray();
    return {kOk, json.Text()};
}

Result ListProcesses() {
    JsonWriter json;
    json.BeginArray();
    for (const ProcessInfo& process : RunningProcesses()) {
        json.BeginObject().Key("pid").Number(process.processId).Key("exe").String(process.exe);
        json.Key("commandLine").String(process.commandLine).Key("startupRead").Bool(process.startupRead);
        json.Key("startupFlags").Number(process.startupFlags).Key("showWindow").Number(process.showWindow);
        json.EndObject();
    }
    json.EndArray();
    return {kOk, json.Text()};
}

Result ShowWindowState(HWND window) {
    const WindowInfo info = Describe(window);
    RECT client{};
    GetClientRect(window, &client);
    JsonWriter json;
    json.BeginObject();
    json.Key("hwnd").Number(reinterpret_cast<INT_PTR>(window));
    json.Key("pid").Number(info.processId);
    json.Key("title").String(info.text);
    json.Key("class").String(info.className);
    json.Key("visible").Bool(info.visible);
    json.Key("enabled").Bool(info.enabled);
    json.Key("minimized").Bool(IsIconic(window) != FALSE);
    json.Key("maximized").Bool(IsZoomed(window) != FALSE);
    json.Key("foreground").Bool(GetForegroundWindow() == window);
    json.Key("topmost").Bool((GetWindowLongA(window, GWL_EXSTYLE) & WS_EX_TOPMOST) != 0);
    json.Key("rect");
    WriteRect(json, info.rect);
    json.Key("client").BeginArray().Number(client.right).Number(client.bottom).EndArray();
    POINT origin{};
    ClientToScreen(window, &origin);
    json.Key("clientOrigin").BeginArray().Number(origin.x).Number(origin.y).EndArray();
    json.EndObject();
    return {kOk, json.Text()};
}

Result ListControls(HWND window) {
    JsonWriter json;
    json.BeginArray();
    for (HWND child : Descendants(window)) WriteWindowInfo(json, Describe(child));
    json.EndArray();
    return {kOk, json.Text()};
}

Result ShowGrid(HWND window) {
    HWND listView = FindDescendantByClass(window, "SysListView32");
    if (!listView) return Fail(kNotFound, "no list view in the window");
    GridContents grid;
    if (!ReadGrid(listView, grid)) return Fail(kFailed, "could not read the list view");
    JsonWriter json;
    json.BeginObject().Key("columns").BeginArray();
    for (const GridColumn& column : grid.columns) {
        json.BeginObject().Key("header").String(column.header).Key("width").Number(column.width).EndObject();
    }
    json.EndArray().Key("rows").BeginArray();
    for (const GridRow& row : grid.rows) {
        json.BeginObject().Key("cells").BeginArray();
        for (const std::string& cell : row.cells) json.String(cell);
        json.EndArray();
        json.Key("checked").Bool(row.checked).Key("selected").Bool(row.selected);
        json.Key("focused").Bool(row.focused).EndObject();
    }
    json.EndArray().EndObject();
    return {kOk, json.Text()};
}

Result ShowStatusPanels(HWND window) {
    HWND statusBar = FindDescendantByClass(window, "msctls_statusbar32");
    if (!statusBar) return Fail(kNotFound, "no status bar in the window");
    std::vector<std::string> panels;
    std::vector<std::string> tips;
    std::vector<RECT> rects;
    const bool read = ReadStatusPanels(statusBar, panels) && ReadStatusTips(statusBar, tips) &&
                      ReadStatusRects(statusBar, rects);
    if (!read) return Fail(kFailed, "could not read the status bar");
    JsonWriter json;
    json.BeginObject().Key("panels").BeginArray();
    for (const std::string& panel : panels) json.String(panel);
    json.EndArray().Key("tips").BeginArray();
    for (const std::string& tip : tips) json.String(tip);
    json.EndArray().Key("rects").BeginArray();
    for (const RECT& rect : rects) WriteRect(json, rect);
    json.EndArray().EndObject();
    return {kOk, json.Text()};
}

Result ShowToolbar(HWND window) {
    HWND toolbar = FindDescendantByClass(window, TOOLBARCLASSNAMEA);
    if (!toolbar) return Fail(kNotFound, "no toolbar in the window");
    std::vector<ToolbarButtonInfo> buttons;
    if (!ReadToolbar(toolbar, buttons)) return Fail(kFailed, "could not read the toolbar");
    JsonWriter json;
    json.BeginArray();
    for (const ToolbarButtonInfo& button : buttons) {
        json.BeginObject().Key("id").Number(button.id).Key("text").String(button.text);
        json.Key("enabled").Bool(button.enabled).Key("pressed").Bool(button.pressed);
        json.Key("dropdown").Bool(button.dropDown).Key("rect");
        WriteRect(json, button.rect);
        json.EndObject();
    }
    json.EndArray();
    return {kOk, json.Text()};
}

// A toolbar reports a click on a button to its parent as WM_COMMAND with the
// button's id and the toolbar's handle.
Result ClickToolbarButton(HWND window, const Args& args) {
    if (args.size() < 3) return Fail(kFailed, "toolclick needs a window and a button caption");
    HWND toolbar = FindDescendantByClass(window, TOOLBARCLASSNAMEA);
    std::vector<ToolbarButtonInfo> buttons;
    if (!toolbar || !ReadToolbar(toolbar, buttons)) return Fail(kNotFound, "no readable toolbar in the window");
    for (const ToolbarButtonInfo& button : buttons) {
        if (WithoutMnemonics(button.text) != args[2]) continue;
        PostMessageA(GetParent(toolbar), WM_COMMAND, MAKEWPARAM(button.id, BN_CLICKED),
                     reinterpret_cast<LPARAM>(toolbar));
        JsonWriter json;
        json.BeginObject().Key("pressed").String(button.text).Key("enabled").Bool(button.enabled).EndObject();
        return {kOk, json.Text()};
    }
    return Fail(kNotFound, "no toolbar button " + args[2]);
}

Result Resize(HWND window, const Args& args) {
    if (args.size() < 4) return Fail(kFailed, "resize needs a window, a width and a height");
    const int width = atoi(args[2].c_str());
    const int height = atoi(args[3].c_str());
    SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    return ShowWindowState(window);
}

Result PostSysCommand(HWND window, const Args& args) {
    static const struct {
        const char* name;
        WPARAM command;
    } kCommands[] = {{"minimize", SC_MINIMIZE}, {"maximize", SC_MAXIMIZE}, {"restore", SC_RESTORE}};
    for (const auto& entry : kCommands) {
        if (args.size() < 3 || args[2] != entry.name) continue;
        PostMessageA(window, WM_SYSCOMMAND, entry.command, 0);
        JsonWriter json;
        json.BeginObject().Key("posted").String(entry.name).EndObject();
        return {kOk, json.Text()};
    }
    return Fail(kFailed, "syscommand needs minimize, maximize or restore");
}

Result Redraw(HWND window) {
    const UINT everything = RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN | RDW_UPDATENOW;
    if (!RedrawWindow(window, nullptr, nullptr, everything)) return Fail(kFailed, "RedrawWindow failed");
    return ShowWindowState(window);
}

// The message text of a message box is the static control 0xFFFF; other
// dialogs get their longest static text.
std::string DialogText(HWND dialog) {
    std::string longest;
    for (HWND child : Descendants(dialog)) {
        if (_stricmp(ClassOf(child).c_str(), "Static") != 0) continue;
        const std::string text = WindowText(child);
        if (GetDlgCtrlID(child) == 0xFFFF) return text;
        if (text.size() > longest.size()) longest = text;
    }
    return longest;
}

void WriteDialog(JsonWriter& json, HWND dialog) {
    DWORD processId = 0;
    GetWindowThreadProcessId(dialog, &processId);
    json.Key("hwnd").Number(reinterpret_cast<INT_PTR>(dialog));
    json.Key("pid").Number(processId);
    json.Key("title").String(WindowText(dialog));
    json.Key("text").String(DialogText(dialog));
    json.Key("buttons").BeginArray();
    for (HWND child : Descendants(dialog)) {
        if (_stricmp(ClassOf(child).c_str(), "Button") == 0 && IsWindowVisible(child)) {
            json.String(WithoutMnemonics(WindowText(child)));
        }
    }
    json.EndArray();
}

DWORD PidOption(const Args& args) {
    for (size_t i = 1; i + 1 < args.size(); ++i) {
        if (args[i] == "--pid") return strtoul(args[i + 1].c_str(), nullptr, 10);
    }
    return 0;
}

HWND FirstDialog(const Args& args) {
    const std::vector<HWND> dialogs = VisibleDialogs(PidOption(args));
    return dialogs.empty() ? nullptr : dialogs.front();
}

// WM_COMMAND with the button's id is what a click on it sends; unlike
// BM_CLICK it does not depend on which window has the focus.
void PressButton(HWND button) {
    PostMessageA(GetParent(button), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(button), BN_CLICKED),
                 reinterpret_cast<LPARAM>(button));
}

Result ShowMessageBox(const Args& args) {
    HWND dialog = FirstDialog(args);
    if (!dialog) return Fail(kNotFound, "no message box");
    JsonWriter json;
    json.BeginObject();
    WriteDialog(json, dialog);
    json.EndObject();
    return {kOk, json.Text()};
}

Result AnswerMessageBox(const Args& args) {
    if (args.size() < 2) return Fail(kFailed, "answer needs a button text");
    HWND dialog = FirstDialog(args);
    if (!dialog) return Fail(kNotFound, "no message box");
    HWND button = FindDescendantByText(dialog, args[1], "Button");
    if (!button) return Fail(kFailed, "the message box has no button " + args[1]);
    JsonWriter json;
    json.BeginObject();
    WriteDialog(json, dialog);
    json.Key("pressed").String(WithoutMnemonics(WindowText(button)));
    json.EndObject();
    PressButton(button);
    return {kOk, json.Text()};
}

Result ClickButton(HWND window, const Args& args) {
    if (args.size() < 3) return Fail(kFailed, "click needs a window and a button text");
    HWND button = FindDescendantByText(window, args[2], "Button");
    if (!button) return Fail(kNotFound, "no button " + args[2]);
    PressButton(button);
    JsonWriter json;
    json.BeginObject().Key("pressed").String(args[2]).EndObject();
    return {kOk, json.Text()};
}

Result PostClose(HWND window) {
    PostMessageA(window, WM_CLOSE, 0, 0);
    JsonWriter json;
    json.BeginObject().Key("closed").Number(reinterpret_cast<INT_PTR>(window)).EndObject();
    return {kOk, json.Text()};
}

Result BringToFront(HWND window) {
    JsonWriter json;
    json.BeginObject().Key("foreground").Bool(SetForegroundWindow(window) != FALSE).EndObject();
    return {kOk, json.Text()};
}

Result SelectRows(HWND window, const Args& args) {
    HWND listView = FindDescendantByClass(window, "SysListView32");
    if (!listView) return Fail(kNotFound, "no list view in the window");
    std::vector<int> rows;
    for (size_t i = 2; i < args.size(); ++i) rows.push_back(atoi(args[i].c_str()) - 1);
    if (!SelectGridRows(listView, rows)) return Fail(kFailed, "could not select the rows");
    return ShowGrid(window);
}

// The key must find the button disabled (a run in progress) and end with it
// enabled again: the time between is how long the program took to stop.
Result PressKeyUntilEnabled(HWND window, const Args& args) {
    if (args.size() < 4) return Fail(kFailed, "presskey needs a window, a virtual key and a button text");
    HWND button = FindDescendantByText(window, args[3], "Button");
    if (!button) return Fail(kNotFound, "no button " + args[3]);
    if (IsWindowEnabled(button)) return Fail(kFailed, "the button " + args[3] + " is enabled already");
    const BYTE key = static_cast<BYTE>(strtoul(args[2].c_str(), nullptr, 10));
    const KeyReaction reaction = PressKeyUntil(key, [button] { return IsWindowEnabled(button) != FALSE; }, 10000);
    if (!reaction.seen) return Fail(kFailed, "the button " + args[3] + " stayed disabled");
    char milliseconds[32];
    snprintf(milliseconds, sizeof milliseconds, "%.2f", reaction.milliseconds);
    return {kOk, std::string("{\"ms\": ") + milliseconds + "}"};
}

Result RunOnWindow(const Args& args) {
    if (args.size() < 2) return Fail(kFailed, args[0] + " needs a window title");
    HWND window = FindTopLevel(args[1]);
    if (!window) return Fail(kNotFound, "no window " + args[1]);
    const std::string& command = args[0];
    if (command == "window") return ShowWindowState(window);
    if (command == "controls") return ListControls(window);
    if (command == "grid") return ShowGrid(window);
    if (command == "status") return ShowStatusPanels(window);
    if (command == "click") return ClickButton(window, args);
    if (command == "foreground") return BringToFront(window);
    if (command == "select") return SelectRows(window, args);
    if (command == "presskey") return PressKeyUntilEnabled(window, args);
    if (command == "toolbar") return ShowToolbar(window);
    if (command == "toolclick") return ClickToolbarButton(window, args);
    if (command == "resize") return Resize(window, args);
    if (command == "syscommand") return PostSysCommand(window, args);
    if (command == "redraw") return Redraw(window);
    return PostClose(window);
}

Result Run(const Args& args) {
    const std::string& command = args[0];
    if (command == "windows") return ListWindows(args);
    if (command == "processes") return ListProcesses();
    if (command == "msgbox") return ShowMessageBox(args);
    if (command == "answer") return AnswerMessageBox(args);
    for (const char* name : {"window", "controls", "grid", "status", "click", "close", "foreground", "select",
                             "presskey", "toolbar", "toolclick", "resize", "syscommand", "redraw"}) {
        if (command == name) return RunOnWindow(args);
    }
    return Fail(kFailed, "unknown command " + command);
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
        fprintf(stderr, "usage: kwdriver [--wait ms] windows|processes|window|controls|grid|status|toolbar|msgbox|"
                        "answer|click|toolclick|resize|syscommand|redraw|close|foreground|select|presskey ...\n");
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
