#pragma once
// A block of memory inside the process that owns a window. Common-control
// messages that pass pointers (LVM_GETITEMTEXTA, SB_GETTEXTA, HDM_GETITEMA)
// must point into the owner's address space, as accessibility tools do it.
#include <windows.h>

#include <string>

class RemoteMemory {
public:
    explicit RemoteMemory(HWND window, SIZE_T size = 65536);
    ~RemoteMemory();
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;

    bool Ok() const { return base != nullptr; }
    // The address of the given offset as the owning process sees it.
    char* At(SIZE_T offset) const { return static_cast<char*>(base) + offset; }
    bool Write(SIZE_T offset, const void* data, SIZE_T size);
    bool Read(SIZE_T offset, void* data, SIZE_T size);
    std::string ReadText(SIZE_T offset, SIZE_T length);

private:
    HANDLE process = nullptr;
    void* base = nullptr;
    SIZE_T size = 0;
};
