#include "control_read.h"

#include <commctrl.h>

#include "remote_memory.h"

namespace {

const UINT kTimeoutMs = 3000;
// The remote block holds the structure at its start and the text after it.
const SIZE_T kTextOffset = 1024;
const int kTextCapacity = 8192;

bool Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    DWORD_PTR answer = 0;
    if (!SendMessageTimeoutA(window, message, wParam, lParam, SMTO_ABORTIFHUNG, kTimeoutMs, &answer)) {
        return false;
    }
    result = static_cast<LRESULT>(answer);
    return true;
}

LRESULT SendOrZero(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    return Send(window, message, wParam, lParam, result) ? result : 0;
}

LPARAM Address(RemoteMemory& memory, SIZE_T offset) {
    return reinterpret_cast<LPARAM>(memory.At(offset));
}

std::string ItemText(HWND listView, RemoteMemory& memory, int item, int subItem) {
    LVITEMA request{};
    request.iSubItem = subItem;
    request.pszText = memory.At(kTextOffset);
    request.cchTextMax = kTextCapacity;
    if (!memory.Write(0, &request, sizeof request)) return {};
    const LRESULT length = SendOrZero(listView, LVM_GETITEMTEXTA, item, Address(memory, 0));
    return memory.ReadText(kTextOffset, static_cast<SIZE_T>(length));
}

bool ReadColumns(HWND listView, RemoteMemory& memory, std::vector<GridColumn>& columns) {
    HWND header = reinterpret_cast<HWND>(SendOrZero(listView, LVM_GETHEADER, 0, 0));
    if (!header) return false;
    const int count = static_cast<int>(SendOrZero(header, HDM_GETITEMCOUNT, 0, 0));
    for (int i = 0; i < count; ++i) {
        HDITEMA request{};
        request.mask = HDI_TEXT;
        request.pszText = memory.At(kTextOffset);
        request.cchTextMax = kTextCapacity;
        if (!memory.Write(0, &request, sizeof request)) return false;
        SendOrZero(header, HDM_GETITEMA, i, Address(memory, 0));
        GridColumn column;
        column.header = memory.ReadText(kTextOffset, kTextCapacity);
        column.width = static_cast<int>(SendOrZero(listView, LVM_GETCOLUMNWIDTH, i, 0));
        columns.push_back(column);
    }
    return true;
}

GridRow ReadRow(HWND listView, RemoteMemory& memory, int item, size_t columnCount) {
    GridRow row;
    for (size_t column = 0; column < columnCount; ++column) {
        row.cells.push_back(ItemText(listView, memory, item, static_cast<int>(column)));
    }
    const LRESULT state = SendOrZero(listView, LVM_GETITEMSTATE, item,
                                     LVIS_STATEIMAGEMASK | LVIS_SELECTED | LVIS_FOCUSED);
    // State image 2 is the ticked check box, 1 the empty one.
    row.checked = ((state & LVIS_STATEIMAGEMASK) >> 12) == 2;
    row.selected = (state & LVIS_SELECTED) != 0;
    row.focused = (state & LVIS_FOCUSED) != 0;
    return row;
}

// Runs `read(memory, panel)` for each panel of the status bar, with one block
// of memory in its process; false as soon as one read fails.
template <class Read>
bool ForEachPanel(HWND statusBar, Read read) {
    RemoteMemory memory(statusBar);
    LRESULT count = 0;
    if (!memory.Ok() || !Send(statusBar, SB_GETPARTS, 0, 0, count)) return false;
    for (int panel = 0; panel < static_cast<int>(count); ++panel) {
        if (!read(memory, panel)) return false;
    }
    return true;
}

bool ReadToolbarButton(HWND toolbar, RemoteMemory& memory, int index, ToolbarButtonInfo& info) {
    LRESULT ok = 0;
    TBBUTTON button{};
    if (!Send(toolbar, TB_GETBUTTON, index, Address(memory, 0), ok) || !ok ||
        !memory.Read(0, &button, sizeof button)) {
        return false;
    }
    info.id = button.idCommand;
    info.enabled = (button.fsState & TBSTATE_ENABLED) != 0;
    info.pressed = (button.fsState & TBSTATE_PRESSED) != 0;
    info.dropDown = (button.fsStyle & BTNS_DROPDOWN) != 0;
    LRESULT length = 0;
    if (!Send(toolbar, TB_GETBUTTONTEXTA, button.idCommand, Address(memory, kTextOffset), length) || length < 0 ||
        length >= kTextCapacity) {
        return false;
    }
    info.text = memory.ReadText(kTextOffset, static_cast<SIZE_T>(length));
    if (!Send(toolbar, TB_GETRECT, button.idCommand, Address(memory, 0), ok) || !ok ||
        !memory.Read(0, &info.rect, sizeof info.rect)) {
        return false;
    }
    MapWindowPoints(toolbar, nullptr, reinterpret_cast<POINT*>(&info.rect), 2);
    return true;
}

}  // namespace

bool ReadGrid(HWND listView, GridContents& grid) {
    RemoteMemory memory(listView);
    if (!memory.Ok() || !ReadColumns(listView, memory, grid.columns)) return false;
    LRESULT count = 0;
    if (!Send(listView, LVM_GETITEMCOUNT, 0, 0, count)) return false;
    const size_t columnCount = grid.columns.empty() ? 1 : grid.columns.size();
    for (int item = 0; item < static_cast<int>(count); ++item) {
        grid.rows.push_back(ReadRow(listView, memory, item, columnCount));
    }
    return true;
}

bool ReadStatusPanels(HWND statusBar, std::vector<std::string>& panels) {
    return ForEachPanel(statusBar, [&](RemoteMemory& memory, int panel) {
        const LRESULT length = LOWORD(SendOrZero(statusBar, SB_GETTEXTLENGTHA, panel, 0));
        if (length >= kTextCapacity) return false;
        SendOrZero(statusBar, SB_GETTEXTA, panel, Address(memory, kTextOffset));
        panels.push_back(memory.ReadText(kTextOffset, static_cast<SIZE_T>(length)));
        return true;
    });
}

bool ReadStatusRects(HWND statusBar, std::vector<RECT>& rects) {
    return ForEachPanel(statusBar, [&](RemoteMemory& memory, int panel) {
        RECT rect{};
        if (!SendOrZero(statusBar, SB_GETRECT, panel, Address(memory, 0)) || !memory.Read(0, &rect, sizeof rect)) {
            return false;
        }
        MapWindowPoints(statusBar, nullptr, reinterpret_cast<POINT*>(&rect), 2);
        rects.push_back(rect);
        return true;
    });
}

bool SelectGridRows(HWND listView, const std::vector<int>& rows) {
    RemoteMemory memory(listView);
    if (!memory.Ok()) return false;
    LVITEMA change{};
    change.stateMask = LVIS_SELECTED;
    // Item -1 changes every row: clear them all, then select the chosen ones.
    if (!memory.Write(0, &change, sizeof change) || !SendOrZero(listView, LVM_SETITEMSTATE, -1, Address(memory, 0))) {
        return false;
    }
    change.state = LVIS_SELECTED;
    if (!memory.Write(0, &change, sizeof change)) return false;
    for (int row : rows) {
        if (!SendOrZero(listView, LVM_SETITEMSTATE, row, Address(memory, 0))) return false;
    }
    return true;
}

bool ReadStatusTips(HWND statusBar, std::vector<std::string>& tips) {
    return ForEachPanel(statusBar, [&](RemoteMemory& memory, int panel) {
        const char nothing = '\0';
        if (!memory.Write(kTextOffset, &nothing, 1)) return false;
        SendOrZero(statusBar, SB_GETTIPTEXTA, MAKEWPARAM(panel, kTextCapacity), Address(memory, kTextOffset));
        tips.push_back(memory.ReadText(kTextOffset, kTextCapacity));
        return true;
    });
}

bool ReadToolbar(HWND toolbar, std::vector<ToolbarButtonInfo>& buttons) {
    RemoteMemory memory(toolbar);
    LRESULT count = 0;
    if (!memory.Ok() || !Send(toolbar, TB_BUTTONCOUNT, 0, 0, count)) return false;
    for (int index = 0; index < static_cast<int>(count); ++index) {
        ToolbarButtonInfo info;
        if (!ReadToolbarButton(toolbar, memory, index, info)) return false;
        buttons.push_back(info);
    }
    return true;
}
