#include "toolbar_read.h"

#include <commctrl.h>

#include "remote_memory.h"

namespace {

const UINT kTimeoutMs = 3000;
// The remote block holds the structure at its start and the text after it.
const SIZE_T kTextOffset = 1024;
const int kTextCapacity = 1024;

bool Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    DWORD_PTR answer = 0;
    if (!SendMessageTimeoutA(window, message, wParam, lParam, SMTO_ABORTIFHUNG, kTimeoutMs, &answer)) return false;
    result = static_cast<LRESULT>(answer);
    return true;
}

bool ReadButton(HWND toolbar, RemoteMemory& memory, int index, ToolbarButtonInfo& info) {
    LRESULT ok = 0;
    TBBUTTON button{};
    if (!Send(toolbar, TB_GETBUTTON, index, reinterpret_cast<LPARAM>(memory.At(0)), ok) || !ok ||
        !memory.Read(0, &button, sizeof button)) {
        return false;
    }
    info.id = button.idCommand;
    info.enabled = (button.fsState & TBSTATE_ENABLED) != 0;
    info.pressed = (button.fsState & TBSTATE_PRESSED) != 0;
    info.dropDown = (button.fsStyle & BTNS_DROPDOWN) != 0;
    LRESULT length = 0;
    if (!Send(toolbar, TB_GETBUTTONTEXTA, button.idCommand, reinterpret_cast<LPARAM>(memory.At(kTextOffset)),
              length) || length < 0 || length >= kTextCapacity) {
        return false;
    }
    info.text = memory.ReadText(kTextOffset, static_cast<SIZE_T>(length));
    if (!Send(toolbar, TB_GETRECT, button.idCommand, reinterpret_cast<LPARAM>(memory.At(0)), ok) || !ok ||
        !memory.Read(0, &info.rect, sizeof info.rect)) {
        return false;
    }
    MapWindowPoints(toolbar, nullptr, reinterpret_cast<POINT*>(&info.rect), 2);
    return true;
}

}  // namespace

bool ReadToolbar(HWND toolbar, std::vector<ToolbarButtonInfo>& buttons) {
    RemoteMemory memory(toolbar);
    LRESULT count = 0;
    if (!memory.Ok() || !Send(toolbar, TB_BUTTONCOUNT, 0, 0, count)) return false;
    for (int index = 0; index < static_cast<int>(count); ++index) {
        ToolbarButtonInfo info;
        if (!ReadButton(toolbar, memory, index, info)) return false;
        buttons.push_back(info);
    }
    return true;
}
