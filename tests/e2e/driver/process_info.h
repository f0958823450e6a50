#pragma once
// The processes of the session with the command line and the start-up
// window state each was given, read from their process parameters as a
// debugger would.
#include <windows.h>

#include <string>
#include <vector>

struct ProcessInfo {
    DWORD processId = 0;
    std::string exe;
    std::string commandLine;
    bool startupRead = false;  // the parameters below could be read
    DWORD startupFlags = 0;    // STARTUPINFO.dwFlags
    DWORD showWindow = 0;      // STARTUPINFO.wShowWindow
};

std::vector<ProcessInfo> RunningProcesses();
