#include "playback/window_command.h"

#include <algorithm>

#include "core/app.h"
#include "core/basic_text.h"
#include "core/vocabulary.h"
#include "platform/win_constants.h"

namespace {

struct ParsedCommand {
    std::string command;
    std::string title;
    std::string width = "-1";
    std::string height = "-1";
};

ParsedCommand Parse(const std::string& text) {
    ParsedCommand parsed;
    std::size_t blank = text.find(' ');
    if (blank != std::string::npos) parsed.command = Trim(text.substr(0, blank + 1));
    std::string rest = ReplaceAll(text, parsed.command + " ", "");
    std::size_t semicolon = rest.find(';');
    if (semicolon == std::string::npos) {
        parsed.title = rest;
        return parsed;
    }
    parsed.title = rest.substr(0, semicolon);
    std::vector<std::string> size = Split(Trim(rest.substr(semicolon + 1)), ",");
    if (!size[0].empty()) parsed.width = size[0];
    if (size.size() > 1 && !size[1].empty()) parsed.height = size[1];
    return parsed;
}

WindowHandle Target(App& app, const std::string& title) {
    if (Lower(title) == "%active") return app.os.windows.Foreground();
    return app.os.windows.FindByTitle(title);
}

// Moves and sizes the window; -1 keeps an edge or an extent as it is. The
// window also goes to the bottom of the z-order, as it always has.
void MoveWindow(App& app, WindowHandle window, const ParsedCommand& parsed, int x, int y) {
    Rect rect = app.os.windows.GetRect(window);
    int left = x == -1 ? rect.left : x;
    int top = y == -1 ? rect.top : y;
    double width = Val(parsed.width);
    double height = Val(parsed.height);
    int newWidth = width == -1 ? rect.right - rect.left : CLng(width);
    int newHeight = height == -1 ? rect.bottom - rect.top : CLng(height);
    app.os.windows.SetPos(window, win::kHwndBottom, left, top, newWidth, newHeight, 0);
}

}  // namespace

void WinCommand(App& app, const std::string& text, int x, int y) {
    ParsedCommand parsed = Parse(text);
    // Names compare exactly: "%WINMIN" is no command.
    auto known = std::find_if(kWindowCommands.begin(), kWindowCommands.end(),
                              [&](const WindowCommand& command) { return parsed.command == command.name; });
    if (known == kWindowCommands.end()) return;
    WindowHandle window = Target(app, parsed.title);
    if (window == 0) return;
    WindowSystem& windows = app.os.windows;
    switch (known->action) {
        case WindowAction::Focus: windows.SetForeground(window); break;
        case WindowAction::Minimise: windows.Show(window, win::kSwMinimize); break;
        case WindowAction::Maximise: windows.Show(window, win::kSwShowMaximized); break;
        case WindowAction::Restore: windows.Show(window, win::kSwRestore); break;
        case WindowAction::Move: MoveWindow(app, window, parsed, x, y); break;
        case WindowAction::Close: windows.Post(window, win::kWmClose, 0, 0); break;
    }
}
