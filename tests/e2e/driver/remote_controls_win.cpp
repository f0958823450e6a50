#include "remote_controls.h"

#include <commctrl.h>

#include <algorithm>
#include <climits>

namespace {

const UINT kTimeoutMs = 3000;
// A block holds the message's structure at its start and the text after it.
const SIZE_T kTextOffset = 1024;
const SIZE_T kBlockSize = 65536;
const int kTextCapacity = 8192;

// A block of memory inside the process that owns a window.
class RemoteMemory {
public:
    explicit RemoteMemory(HWND window) {
        DWORD processId = 0;
        GetWindowThreadProcessId(window, &processId);
        process = OpenProcess(PROCESS_VM_OPERATION | PROCESS_VM_READ | PROCESS_VM_WRITE, FALSE, processId);
        if (process) base = VirtualAllocEx(process, nullptr, kBlockSize, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE);
    }
    ~RemoteMemory() {
        if (base) VirtualFreeEx(process, base, 0, MEM_RELEASE);
        if (process) CloseHandle(process);
    }
    RemoteMemory(const RemoteMemory&) = delete;
    RemoteMemory& operator=(const RemoteMemory&) = delete;

    bool Ok() const { return base != nullptr; }
    // The address of the offset as the owning process sees it.
    LPARAM At(SIZE_T offset) const { return reinterpret_cast<LPARAM>(static_cast<char*>(base) + offset); }
    bool Write(SIZE_T offset, const void* data, SIZE_T size) {
        SIZE_T written = 0;
        return WriteProcessMemory(process, reinterpret_cast<void*>(At(offset)), data, size, &written) &&
               written == size;
    }
    bool Read(SIZE_T offset, void* data, SIZE_T size) {
        SIZE_T read = 0;
        return ReadProcessMemory(process, reinterpret_cast<void*>(At(offset)), data, size, &read) && read == size;
    }
    std::string Text(SIZE_T length) {
        std::string text(std::min<SIZE_T>(length, kTextCapacity), '\0');
        if (!Read(kTextOffset, text.data(), text.size())) return {};
        return text.substr(0, text.find('\0'));
    }

private:
    HANDLE process = nullptr;
    void* base = nullptr;
};

bool Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    DWORD_PTR answer = 0;
    if (!SendMessageTimeoutA(window, message, wParam, lParam, SMTO_ABORTIFHUNG, kTimeoutMs, &answer)) return false;
    result = static_cast<LRESULT>(answer);
    return true;
}

std::string ItemText(HWND listView, RemoteMemory& memory, int item, int subItem) {
    LVITEMA request{};
    request.iSubItem = subItem;
    request.pszText = reinterpret_cast<char*>(memory.At(kTextOffset));
    request.cchTextMax = kTextCapacity;
    LRESULT length = 0;
    if (!memory.Write(0, &request, sizeof request) || !Send(listView, LVM_GETITEMTEXTA, item, memory.At(0), length)) {
        return {};
    }
    return memory.Text(static_cast<SIZE_T>(length));
}

// Runs read(memory, index) for each of the items a control counts with
// `countMessage` (from `first`, at most `limit` of them), with one block of
// memory in its process; false as soon as a message fails.
template <class Read>
bool ForEachItem(HWND control, UINT countMessage, Read read, int first = 0, int limit = INT_MAX) {
    RemoteMemory memory(control);
    LRESULT count = 0;
    if (!memory.Ok() || !Send(control, countMessage, 0, 0, count)) return false;
    for (int index = first; index < count && index - first < limit; ++index) {
        if (!read(memory, index)) return false;
    }
    return true;
}

// The cell's text area in screen pixels (column 0 without its check box).
bool CellRect(HWND listView, RemoteMemory& memory, int item, int subItem, RECT& rect) {
    RECT request{LVIR_LABEL, subItem, 0, 0};
    LRESULT ok = 0;
    if (!memory.Write(0, &request, sizeof request) || !Send(listView, LVM_GETSUBITEMRECT, item, memory.At(0), ok) ||
        !ok || !memory.Read(0, &rect, sizeof rect)) {
        return false;
    }
    MapWindowPoints(listView, nullptr, reinterpret_cast<POINT*>(&rect), 2);
    return true;
}

}  // namespace

bool ReadGrid(HWND listView, std::vector<GridRow>& rows, int first, int limit) {
    LRESULT header = 0, columns = 0;
    if (!Send(listView, LVM_GETHEADER, 0, 0, header) ||
        !Send(reinterpret_cast<HWND>(header), HDM_GETITEMCOUNT, 0, 0, columns)) {
        return false;
    }
    return ForEachItem(listView, LVM_GETITEMCOUNT, [&](RemoteMemory& memory, int item) {
        GridRow row;
        for (int column = 0; column < columns; ++column) {
            row.cells.push_back(ItemText(listView, memory, item, column));
            RECT rect{};
            if (!CellRect(listView, memory, item, column, rect)) return false;
            row.rects.push_back(rect);
        }
        LRESULT state = 0;
        if (!Send(listView, LVM_GETITEMSTATE, item, LVIS_STATEIMAGEMASK, state)) return false;
        row.checked = (state & LVIS_STATEIMAGEMASK) >> 12 == 2;  // image 2 is the ticked box, 1 the empty one
        rows.push_back(row);
        return true;
    }, first, limit);
}

bool ReadStatusBar(HWND statusBar, std::vector<StatusPanel>& panels) {
    return ForEachItem(statusBar, SB_GETPARTS, [&](RemoteMemory& memory, int index) {
        StatusPanel panel;
        LRESULT length = 0, done = 0;
        // SB_GETTEXTA knows no buffer size: the text must fit before it is asked for.
        if (!Send(statusBar, SB_GETTEXTLENGTHA, index, 0, length) || LOWORD(length) >= kTextCapacity ||
            !Send(statusBar, SB_GETTEXTA, index, memory.At(kTextOffset), done) ||
            !Send(statusBar, SB_GETRECT, index, memory.At(0), done) || !memory.Read(0, &panel.rect, sizeof(RECT))) {
            return false;
        }
        panel.text = memory.Text(LOWORD(length));
        MapWindowPoints(statusBar, nullptr, reinterpret_cast<POINT*>(&panel.rect), 2);
        panels.push_back(panel);
        return true;
    });
}

bool ReadToolbar(HWND toolbar, std::vector<ToolbarButton>& buttons) {
    return ForEachItem(toolbar, TB_BUTTONCOUNT, [&](RemoteMemory& memory, int index) {
        TBBUTTON button{};
        LRESULT ok = 0, length = 0;
        if (!Send(toolbar, TB_GETBUTTON, index, memory.At(0), ok) || !ok || !memory.Read(0, &button, sizeof button) ||
            !Send(toolbar, TB_GETBUTTONTEXTA, button.idCommand, memory.At(kTextOffset), length) || length < 0) {
            return false;
        }
        ToolbarButton read{button.idCommand, memory.Text(static_cast<SIZE_T>(length)),
                           (button.fsState & TBSTATE_ENABLED) != 0};
        if (!Send(toolbar, TB_GETITEMRECT, index, memory.At(0), ok) || !ok || !memory.Read(0, &read.rect, sizeof(RECT)))
            return false;
        MapWindowPoints(toolbar, nullptr, reinterpret_cast<POINT*>(&read.rect), 2);
        buttons.push_back(read);
        return true;
    });
}

bool SelectGridRows(HWND listView, const std::vector<int>& rows) {
    RemoteMemory memory(listView);
    LVITEMA change{};
    change.stateMask = LVIS_SELECTED;
    LRESULT ok = 0;
    // Item -1 changes every row: clear them all, then select the chosen ones.
    if (!memory.Ok() || !memory.Write(0, &change, sizeof change) ||
        !Send(listView, LVM_SETITEMSTATE, -1, memory.At(0), ok) || !ok) {
        return false;
    }
    change.state = LVIS_SELECTED;
    if (!memory.Write(0, &change, sizeof change)) return false;
    for (int row : rows) {
        if (!Send(listView, LVM_SETITEMSTATE, row, memory.At(0), ok) || !ok) return false;
    }
    return true;
}
