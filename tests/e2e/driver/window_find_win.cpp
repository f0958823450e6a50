#include "window_find.h"

#include <cstdlib>
#include <cstring>

namespace {

const UINT kTextTimeoutMs = 3000;

BOOL CALLBACK CollectWindow(HWND window, LPARAM list) {
    reinterpret_cast<std::vector<HWND>*>(list)->push_back(window);
    return TRUE;
}

bool SameTextIgnoringCase(const std::string& a, const std::string& b) {
    return a.size() == b.size() && _stricmp(a.c_str(), b.c_str()) == 0;
}

bool MatchesTarget(HWND window, const std::string& target) {
    if (target.rfind("pid=", 0) == 0) {
        DWORD processId = 0;
        GetWindowThreadProcessId(window, &processId);
        return processId == strtoul(target.c_str() + 4, nullptr, 10) && !WindowText(window).empty();
    }
    return WindowText(window) == target;
}

}  // namespace

std::string WindowText(HWND window) {
    DWORD_PTR length = 0;
    if (!SendMessageTimeoutA(window, WM_GETTEXTLENGTH, 0, 0, SMTO_ABORTIFHUNG, kTextTimeoutMs, &length)) {
        char text[1024];
        return std::string(text, static_cast<size_t>(GetWindowTextA(window, text, sizeof text)));
    }
    std::string text(length + 1, '\0');
    DWORD_PTR copied = 0;
    SendMessageTimeoutA(window, WM_GETTEXT, length + 1, reinterpret_cast<LPARAM>(text.data()),
                        SMTO_ABORTIFHUNG, kTextTimeoutMs, &copied);
    text.resize(copied);
    return text;
}

std::string ClassOf(HWND window) {
    char name[256];
    return std::string(name, static_cast<size_t>(GetClassNameA(window, name, sizeof name)));
}

WindowInfo Describe(HWND window) {
    WindowInfo info;
    info.window = window;
    GetWindowThreadProcessId(window, &info.processId);
    info.id = GetDlgCtrlID(window);
    info.className = ClassOf(window);
    info.text = WindowText(window);
    info.visible = IsWindowVisible(window) != FALSE;
    info.enabled = IsWindowEnabled(window) != FALSE;
    GetWindowRect(window, &info.rect);
    return info;
}

std::vector<HWND> TopLevelWindows() {
    std::vector<HWND> windows;
    EnumWindows(CollectWindow, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

std::vector<HWND> Descendants(HWND parent) {
    std::vector<HWND> windows;
    EnumChildWindows(parent, CollectWindow, reinterpret_cast<LPARAM>(&windows));
    return windows;
}

HWND FindTopLevel(const std::string& target) {
    if (target.rfind("hwnd=", 0) == 0) {
        HWND window = reinterpret_cast<HWND>(static_cast<INT_PTR>(strtoll(target.c_str() + 5, nullptr, 10)));
        return IsWindow(window) ? window : nullptr;
    }
    HWND hidden = nullptr;
    for (HWND window : TopLevelWindows()) {
        if (!MatchesTarget(window, target)) continue;
        if (IsWindowVisible(window)) return window;
        if (!hidden) hidden = window;
    }
    return hidden;
}

HWND FindDescendantByClass(HWND parent, const std::string& className) {
    for (HWND window : Descendants(parent)) {
        if (SameTextIgnoringCase(ClassOf(window), className)) return window;
    }
    return nullptr;
}

HWND FindDescendantByText(HWND parent, const std::string& text, const std::string& className) {
    const std::string wanted = WithoutMnemonics(text);
    for (HWND window : Descendants(parent)) {
        if (!className.empty() && !SameTextIgnoringCase(ClassOf(window), className)) continue;
        if (SameTextIgnoringCase(WithoutMnemonics(WindowText(window)), wanted)) return window;
    }
    return nullptr;
}

std::vector<HWND> VisibleDialogs(DWORD processId) {
    std::vector<HWND> dialogs;
    for (HWND window : TopLevelWindows()) {
        if (!IsWindowVisible(window) || ClassOf(window) != "#32770") continue;
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        if (processId == 0 || owner == processId) dialogs.push_back(window);
    }
    return dialogs;
}

std::string WithoutMnemonics(const std::string& text) {
    std::string plain;
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '&' && i + 1 < text.size()) ++i;  // "&&" stands for one ampersand
        plain += text[i];
    }
    return plain;
}
