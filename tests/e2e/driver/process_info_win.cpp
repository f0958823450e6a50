#include "process_info.h"

#include <tlhelp32.h>
#include <winternl.h>

#include <cstddef>

namespace {

// The start of the process parameters block as the system lays it out; the
// public header declares only the command line of it.
struct ProcessParameters {
    ULONG maximumLength;
    ULONG length;
    ULONG flags;
    ULONG debugFlags;
    HANDLE consoleHandle;
    ULONG consoleFlags;
    HANDLE standardHandles[3];
    UNICODE_STRING currentDirectory;
    HANDLE currentDirectoryHandle;
    UNICODE_STRING dllPath;
    UNICODE_STRING imagePathName;
    UNICODE_STRING commandLine;
    PVOID environment;
    ULONG startingX, startingY, countX, countY, countCharsX, countCharsY, fillAttribute;
    ULONG windowFlags;
    ULONG showWindowFlags;
};
static_assert(sizeof(void*) != 8 || offsetof(ProcessParameters, commandLine) == 0x70);
static_assert(sizeof(void*) != 8 || offsetof(ProcessParameters, showWindowFlags) == 0xA8);

using QueryProcess = LONG(WINAPI*)(HANDLE, PROCESSINFOCLASS, PVOID, ULONG, PULONG);

template <class T>
bool ReadRemote(HANDLE process, const void* address, T& value) {
    SIZE_T read = 0;
    return ReadProcessMemory(process, address, &value, sizeof value, &read) && read == sizeof value;
}

std::string Narrow(const std::wstring& wide) {
    if (wide.empty()) return {};
    const int wideLength = static_cast<int>(wide.size());
    int length = WideCharToMultiByte(CP_ACP, 0, wide.data(), wideLength, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<size_t>(length), '\0');
    WideCharToMultiByte(CP_ACP, 0, wide.data(), wideLength, text.data(), length, nullptr, nullptr);
    return text;
}

bool ReadParameters(HANDLE process, ProcessInfo& info) {
    static const auto query = reinterpret_cast<QueryProcess>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("ntdll.dll"), "NtQueryInformationProcess")));
    PROCESS_BASIC_INFORMATION basic{};
    if (!query || query(process, ProcessBasicInformation, &basic, sizeof basic, nullptr) != 0) return false;
    PEB peb{};
    ProcessParameters parameters{};
    if (!ReadRemote(process, basic.PebBaseAddress, peb) || !ReadRemote(process, peb.ProcessParameters, parameters)) {
        return false;
    }
    std::wstring commandLine(parameters.commandLine.Length / sizeof(wchar_t), L'\0');
    SIZE_T read = 0;
    if (!ReadProcessMemory(process, parameters.commandLine.Buffer, commandLine.data(), parameters.commandLine.Length,
                           &read)) {
        return false;
    }
    info.commandLine = Narrow(commandLine);
    info.startupFlags = parameters.windowFlags;
    info.showWindow = parameters.showWindowFlags;
    return true;
}

}  // namespace

std::vector<ProcessInfo> RunningProcesses() {
    std::vector<ProcessInfo> processes;
    HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (snapshot == INVALID_HANDLE_VALUE) return processes;
    PROCESSENTRY32 entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32First(snapshot, &entry); more; more = Process32Next(snapshot, &entry)) {
        ProcessInfo info;
        info.processId = entry.th32ProcessID;
        info.exe = entry.szExeFile;
        if (HANDLE process = OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, entry.th32ProcessID)) {
            info.startupRead = ReadParameters(process, info);
            CloseHandle(process);
        }
        processes.push_back(info);
    }
    CloseHandle(snapshot);
    return processes;
}
