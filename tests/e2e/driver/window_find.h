#pragma once
// Finding and describing other programs' windows from outside.
#include <windows.h>

#include <string>
#include <vector>

struct WindowInfo {
    HWND window = nullptr;
    DWORD processId = 0;
    int id = 0;
    std::string className;
    std::string text;
    bool visible = false;
    bool enabled = false;
    RECT rect{};
};

// The window's text as the window itself reports it (WM_GETTEXT), with a
// time limit so a busy target cannot hang the driver.
std::string WindowText(HWND window);
std::string ClassOf(HWND window);
WindowInfo Describe(HWND window);

std::vector<HWND> TopLevelWindows();
std::vector<HWND> Descendants(HWND parent);

// A target is a window title (exact), "pid=<Windows process id>" or
// "hwnd=<handle as a decimal number>". Visible windows win over hidden ones.
HWND FindTopLevel(const std::string& target);
HWND FindDescendantByClass(HWND parent, const std::string& className);
// Compares the control's text with the ampersands of its mnemonic removed,
// ignoring case.
HWND FindDescendantByText(HWND parent, const std::string& text, const std::string& className);
// Visible message boxes and other standard dialogs (#32770); processId 0
// means any process.
std::vector<HWND> VisibleDialogs(DWORD processId);
std::string WithoutMnemonics(const std::string& text);
