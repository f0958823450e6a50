#include "remote_memory.h"

#include <vector>

RemoteMemory::RemoteMemory(HWND window, SIZE_T size) : size(size) {
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    process = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, processId);
    if (process) base = VirtualAllocEx(process, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
}

RemoteMemory::~RemoteMemory() {
    if (base) VirtualFreeEx(process, base, 0, MEM_RELEASE);
    if (process) CloseHandle(process);
}

bool RemoteMemory::Write(SIZE_T offset, const void* data, SIZE_T length) {
    if (!base || offset + length > size) return false;
    SIZE_T written = 0;
    return WriteProcessMemory(process, At(offset), data, length, &written) && written == length;
}

bool RemoteMemory::Read(SIZE_T offset, void* data, SIZE_T length) {
    if (!base || offset + length > size) return false;
    SIZE_T read = 0;
    return ReadProcessMemory(process, At(offset), data, length, &read) && read == length;
}

std::string RemoteMemory::ReadText(SIZE_T offset, SIZE_T length) {
    if (offset + length > size) length = size - offset;
    std::vector<char> text(length + 1, '\0');
    if (!Read(offset, text.data(), length)) return {};
    return std::string(text.data());
}
