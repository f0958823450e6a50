#include "app/toolbar_win.h"

#include <iterator>

#include "app/toolbar_commands.h"
#include "app/toolbar_pictures_win.h"
#include "platform/dpi_win.h"
#include "platform/failure_trace_win.h"

namespace {

constexpr int kToolbarId = 0x4B00;
constexpr int kFirstButtonId = 0x4B10;
constexpr int kFirstMenuId = 0x4B40;
constexpr int kButtonCount = static_cast<int>(std::size(kToolbarButtons));
constexpr int kMenuCount = static_cast<int>(std::size(kHelpMenu));
constexpr int kPictureSizeAt96 = 20;

int ButtonIndexOf(int commandId) {
    int index = commandId - kFirstButtonId;
    return index >= 0 && index < kButtonCount ? index : -1;
}

int CommandIdOf(Control control) {
    for (int index = 0; index < kButtonCount; ++index) {
        if (control == kToolbarButtons[index].control) return kFirstButtonId + index;
    }
    return 0;
}

OwnedImageList MakeImageList(int size, PictureLook look) {
    OwnedImageList list(ImageList_Create(size, size, ILC_COLOR32, kButtonCount, 0));
    OwnedBitmap strip = DrawToolbarStrip(size, look);
    if (list && strip) ImageList_Add(list.Get(), strip.Get(), nullptr);
    return list;
}

// The tool tip texts live in the button table; the pointer stays valid.
void FillToolTip(NMHDR* header, int index) {
    const char* tip = kToolbarButtons[index].toolTip;
    if (header->code == TTN_GETDISPINFOA) {
        reinterpret_cast<NMTTDISPINFOA*>(header)->lpszText = const_cast<char*>(tip);
        return;
    }
    static wchar_t wide[kButtonCount][80];
    MultiByteToWideChar(CP_ACP, 0, tip, -1, wide[index], static_cast<int>(std::size(wide[index])));
    reinterpret_cast<NMTTDISPINFOW*>(header)->lpszText = wide[index];
}

}  // namespace

ToolbarWin::~ToolbarWin() {
    if (hwnd_) DestroyWindow(hwnd_);
}

bool ToolbarWin::Create(HWND parent) {
    DWORD style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | TBSTYLE_FLAT | TBSTYLE_TOOLTIPS | CCS_TOP | CCS_NODIVIDER;
    hwnd_ = CreateWindowExA(0, TOOLBARCLASSNAMEA, nullptr, style, 0, 0, 0, 0, parent,
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(kToolbarId)), GetModuleHandleA(nullptr), nullptr);
    if (!hwnd_) {
        ReportLastError("CreateWindowExA");
        return false;
    }
    SendMessageA(hwnd_, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    SendMessageA(hwnd_, TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_DRAWDDARROWS);
    SetPictures(WindowDpi(parent));

    TBBUTTON buttons[kButtonCount]{};
    for (int index = 0; index < kButtonCount; ++index) {
        bool help = kToolbarButtons[index].control == Control::ToolHelp;
        buttons[index].iBitmap = index;
        buttons[index].idCommand = kFirstButtonId + index;
        buttons[index].fsState = TBSTATE_ENABLED;
        buttons[index].fsStyle = static_cast<BYTE>(BTNS_BUTTON | (help ? BTNS_DROPDOWN : 0));
        buttons[index].iString = reinterpret_cast<INT_PTR>(kToolbarButtons[index].caption);
    }
    SendMessageA(hwnd_, TB_ADDBUTTONSA, kButtonCount, reinterpret_cast<LPARAM>(buttons));
    SendMessageA(hwnd_, TB_AUTOSIZE, 0, 0);
    return true;
}

void ToolbarWin::SetPictures(int dpi) {
    int size = MulDiv(kPictureSizeAt96, dpi, 96);
    OwnedImageList normal = MakeImageList(size, PictureLook::Normal);
    OwnedImageList disabled = MakeImageList(size, PictureLook::Disabled);
    OwnedImageList hot = MakeImageList(size, PictureLook::Hot);
    SendMessageA(hwnd_, TB_SETBITMAPSIZE, 0, MAKELPARAM(size, size));
    SendMessageA(hwnd_, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(normal.Get()));
    SendMessageA(hwnd_, TB_SETDISABLEDIMAGELIST, 0, reinterpret_cast<LPARAM>(disabled.Get()));
    SendMessageA(hwnd_, TB_SETHOTIMAGELIST, 0, reinterpret_cast<LPARAM>(hot.Get()));
    // The old lists go only now that the toolbar no longer shows them.
    lstNormal_ = std::move(normal);
    lstDisabled_ = std::move(disabled);
    lstHot_ = std::move(hot);
}

int ToolbarWin::Height() const {
    RECT rect{};
    if (hwnd_) GetWindowRect(hwnd_, &rect);
    return rect.bottom - rect.top;
}

void ToolbarWin::OnParentSize() {
    if (hwnd_) SendMessageA(hwnd_, TB_AUTOSIZE, 0, 0);
}

void ToolbarWin::OnDpiChanged(int dpi, HFONT font) {
    if (!hwnd_) return;
    SetPictures(dpi);
    SendMessageA(hwnd_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
    SendMessageA(hwnd_, TB_AUTOSIZE, 0, 0);
}

void ToolbarWin::SetEnabled(const std::string& key, bool enabled) {
    if (const ToolbarButton* button = ToolbarButtonOf(key)) SetEnabled(button->control, enabled);
}

bool ToolbarWin::IsEnabled(const std::string& key) const {
    const ToolbarButton* button = ToolbarButtonOf(key);
    return button && IsEnabled(button->control);
}

bool ToolbarWin::IsToolbarControl(Control control) const { return CommandIdOf(control) != 0; }

bool ToolbarWin::SetEnabled(Control control, bool enabled) {
    int id = CommandIdOf(control);
    if (id) SendMessageA(hwnd_, TB_ENABLEBUTTON, id, MAKELPARAM(enabled ? TRUE : FALSE, 0));
    return id != 0;
}

bool ToolbarWin::IsEnabled(Control control) const {
    int id = CommandIdOf(control);
    return id && SendMessageA(hwnd_, TB_ISBUTTONENABLED, id, 0) != 0;
}

void ToolbarWin::Click(const std::string& key) {
    if (onClick) onClick(key);
}

bool ToolbarWin::OnCommand(WPARAM wParam, LPARAM lParam) {
    int index = ButtonIndexOf(LOWORD(wParam));
    if (!hwnd_ || reinterpret_cast<HWND>(lParam) != hwnd_ || index < 0) return false;
    Click(kToolbarButtons[index].key);
    return true;
}

bool ToolbarWin::OnNotify(const NMHDR* header, LRESULT& result) {
    if (!hwnd_) return false;
    if (header->hwndFrom == hwnd_ && header->code == TBN_DROPDOWN) {
        ShowHelpMenu(reinterpret_cast<const NMTOOLBARA*>(header)->iItem);
        result = TBDDRET_DEFAULT;
        return true;
    }
    bool toolTip = header->code == TTN_GETDISPINFOA || header->code == TTN_GETDISPINFOW;
    int index = ButtonIndexOf(static_cast<int>(header->idFrom));
    if (!toolTip || index < 0) return false;
    FillToolTip(const_cast<NMHDR*>(header), index);
    result = 0;
    return true;
}

void ToolbarWin::ShowHelpMenu(int commandId) {
    HMENU menu = CreatePopupMenu();
    if (!menu) return;
    for (int entry = 0; entry < kMenuCount; ++entry)
        AppendMenuA(menu, MF_STRING, kFirstMenuId + entry, kHelpMenu[entry].caption);
    RECT button{};
    SendMessageA(hwnd_, TB_GETRECT, commandId, reinterpret_cast<LPARAM>(&button));
    MapWindowPoints(hwnd_, nullptr, reinterpret_cast<POINT*>(&button), 2);
    TPMPARAMS avoid{sizeof avoid, button};
    UINT chosen = TrackPopupMenuEx(menu, TPM_RETURNCMD | TPM_LEFTALIGN | TPM_TOPALIGN | TPM_VERTICAL, button.left,
                                   button.bottom, GetParent(hwnd_), &avoid);
    DestroyMenu(menu);
    int entry = static_cast<int>(chosen) - kFirstMenuId;
    if (entry >= 0 && entry < kMenuCount) Click(kHelpMenu[entry].key);
}
