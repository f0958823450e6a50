#pragma once
// What a process holds, read from outside as a task manager does: kernel
// handles, GDI and USER objects, memory.
#include <windows.h>

#include <string>

struct ProcessCounters {
    DWORD handles = 0;  // Wine's GetProcessHandleCount answers 0: counted among the system's handles there
    DWORD gdiObjects = 0;
    DWORD userObjects = 0;
    // How the GDI and USER objects were counted: "system" (GetGuiResources)
    // or "table" (Wine, which has no GetGuiResources: the GDI handle table
    // and the process's windows).
    std::string objectSource;
    SIZE_T privateBytes = 0;  // 0 under Wine, which keeps no such count of another process
    SIZE_T workingSet = 0;
};

// The address of the process's PEB; null when it cannot be asked.
void* PebAddress(HANDLE process);
// False with a reason when the process cannot be opened or read.
bool ReadProcessCounters(DWORD processId, ProcessCounters& counters, std::string& reason);
