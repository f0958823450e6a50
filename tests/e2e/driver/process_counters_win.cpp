#include "process_counters.h"

#include <psapi.h>
#include <winternl.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace {

// The 64-bit PEB keeps the address of the process's GDI handle table here;
// the public header names only a few of its fields.
const SIZE_T kGdiTableOffset = 0xF8;
const size_t kGdiTableEntries = 0x10000;

// One entry of the GDI handle table as Wine lays it out: a free entry has
// type 0, a stock object (made once, never freed) has the top bit of its
// unique field set.
struct GdiTableEntry {
    UINT64 object;
    ULONG owner;
    USHORT unique;
    UCHAR type;
    UCHAR flags;
    UINT64 userPointer;
};
static_assert(sizeof(GdiTableEntry) == 24, "the table's entry size");
const USHORT kStockFlag = 0x80;

// What NtQuerySystemInformation reports of every open handle of the system.
const int kSystemExtendedHandleInformation = 64;
const LONG kInfoLengthMismatch = static_cast<LONG>(0xC0000004);
struct SystemHandleEntry {
    void* object;
    ULONG_PTR processId;
    ULONG_PTR handle;
    ULONG access;
    USHORT backTraceIndex;
    USHORT typeIndex;
    ULONG attributes;
    ULONG reserved;
};
struct SystemHandles {
    ULONG_PTR count;
    ULONG_PTR reserved;
    SystemHandleEntry entries[1];
};

// The kernel handles the process holds, counted among all the system's.
bool CountSystemHandles(DWORD processId, DWORD& count) {
    using Query = LONG(WINAPI*)(int, PVOID, ULONG, PULONG);
    const auto query = reinterpret_cast<Query>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("ntdll.dll"), "NtQuerySystemInformation")));
    std::vector<char> buffer(1 << 20);
    LONG status = kInfoLengthMismatch;
    while (query && status == kInfoLengthMismatch && buffer.size() <= (1u << 28)) {
        ULONG needed = 0;
        status = query(kSystemExtendedHandleInformation, buffer.data(), static_cast<ULONG>(buffer.size()), &needed);
        if (status == kInfoLengthMismatch) buffer.resize(std::max<size_t>(buffer.size() * 2, needed));
    }
    if (!query || status != 0) return false;
    const auto* handles = reinterpret_cast<const SystemHandles*>(buffer.data());
    count = 0;
    for (ULONG_PTR index = 0; index < handles->count; ++index) count += handles->entries[index].processId == processId;
    return true;
}

struct HandleCloser {
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
using ProcessHandle = std::unique_ptr<void, HandleCloser>;

// GDI objects the process holds, counted in its own handle table.
bool CountGdiTable(HANDLE process, DWORD& count) {
    void* peb = PebAddress(process);
    UINT64 table = 0;
    if (!peb || !ReadProcessMemory(process, static_cast<char*>(peb) + kGdiTableOffset, &table, sizeof table, nullptr) ||
        !table) {
        return false;
    }
    std::vector<GdiTableEntry> entries(kGdiTableEntries);
    if (!ReadProcessMemory(process, reinterpret_cast<void*>(table), entries.data(),
                           entries.size() * sizeof(GdiTableEntry), nullptr)) {
        return false;
    }
    count = 0;
    for (const GdiTableEntry& entry : entries) count += entry.type != 0 && !(entry.unique & kStockFlag);
    return true;
}

struct WindowCount {
    DWORD processId;
    DWORD count;
};

BOOL CALLBACK CountChild(HWND window, LPARAM data) {
    auto* windows = reinterpret_cast<WindowCount*>(data);
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    windows->count += owner == windows->processId;
    return TRUE;
}

BOOL CALLBACK CountTopLevel(HWND window, LPARAM data) {
    CountChild(window, data);
    EnumChildWindows(window, CountChild, data);
    return TRUE;
}

// The process's windows, top-level and child: the USER objects that a leak
// would pile up.
DWORD CountWindows(DWORD processId) {
    WindowCount windows{processId, 0};
    EnumWindows(CountTopLevel, reinterpret_cast<LPARAM>(&windows));
    return windows.count;
}

}  // namespace

void* PebAddress(HANDLE process) {
    using Query = LONG(WINAPI*)(HANDLE, PROCESSINFOCLASS, PVOID, ULONG, PULONG);
    const auto query = reinterpret_cast<Query>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("ntdll.dll"), "NtQueryInformationProcess")));
    PROCESS_BASIC_INFORMATION basic{};
    if (!query || query(process, ProcessBasicInformation, &basic, sizeof basic, nullptr) != 0) return nullptr;
    return basic.PebBaseAddress;
}

bool ReadProcessCounters(DWORD processId, ProcessCounters& counters, std::string& reason) {
    ProcessHandle process(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, processId));
    if (!process) {
        reason = "could not open the process";
        return false;
    }
    PROCESS_MEMORY_COUNTERS_EX memory{};
    if (!GetProcessHandleCount(process.get(), &counters.handles) ||
        !GetProcessMemoryInfo(process.get(), reinterpret_cast<PROCESS_MEMORY_COUNTERS*>(&memory), sizeof memory)) {
        reason = "could not read the handle count or the memory counters";
        return false;
    }
    // Wine answers 0 for another process.
    if (counters.handles == 0 && !CountSystemHandles(processId, counters.handles)) {
        reason = "could not count the system's handles";
        return false;
    }
    counters.privateBytes = memory.PrivateUsage;
    counters.workingSet = memory.WorkingSetSize;
    SetLastError(ERROR_SUCCESS);
    counters.gdiObjects = GetGuiResources(process.get(), GR_GDIOBJECTS);
    const bool unsupported = counters.gdiObjects == 0 && GetLastError() == ERROR_CALL_NOT_IMPLEMENTED;
    counters.userObjects = GetGuiResources(process.get(), GR_USEROBJECTS);
    counters.objectSource = "system";
    if (unsupported) {
        counters.objectSource = "table";
        counters.userObjects = CountWindows(processId);
        if (!CountGdiTable(process.get(), counters.gdiObjects)) {
            reason = "could not read the GDI handle table";
            return false;
        }
    }
    return true;
}
