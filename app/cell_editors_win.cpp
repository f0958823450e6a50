#include "app/cell_editors_win.h"

#include <algorithm>

#include <commctrl.h>

#include "platform/control_text_win.h"

namespace {

constexpr const char* kClassName = "KlickwerkCellEditors";
constexpr int kListRows = 10;  // the dropped list shows all nine actions

enum ChildId : int { kIdText = 10, kIdDropDown };

bool IsEditorKey(WPARAM key) { return key == VK_RETURN || key == VK_ESCAPE; }

}  // namespace

bool CellEditorsWin::Create(HWND parent, HWND list) {
    list_ = list;
    if (!RegisterWindowClass(kClassName, nullptr, reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1))) return false;
    if (!CreateWindowOfClass(kClassName, "", WS_CHILD | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT, 0, 0, 0, 0, parent))
        return false;
    // Shown one at a time, inside the hidden window.
    edit_ = ChildControl(hwnd_, WC_EDITA, "", WS_BORDER | ES_AUTOHSCROLL, kIdText);
    combo_ = ChildControl(hwnd_, WC_COMBOBOXA, "", WS_VSCROLL | CBS_DROPDOWNLIST, kIdDropDown);
    for (auto [editor, original] : {std::pair{edit_, &editProc_}, std::pair{combo_, &comboProc_}}) {
        SetWindowLongPtrA(editor, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        *original = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrA(editor, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&CellEditorsWin::EditorProc)));
    }
    return true;
}

void CellEditorsWin::SetFont(HFONT font) {
    for (HWND editor : {edit_, combo_}) SendMessageA(editor, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

void CellEditorsWin::Open(CellEditor editor, int row, int column, const std::string& text) {
    RECT cell{LVIR_BOUNDS, column, 0, 0};
    SendMessageA(list_, LVM_GETSUBITEMRECT, static_cast<WPARAM>(row - 1), reinterpret_cast<LPARAM>(&cell));
    MapWindowPoints(list_, GetParent(hwnd_), reinterpret_cast<POINT*>(&cell), 2);
    int width = cell.right - cell.left;
    int height = cell.bottom - cell.top;
    HWND shown = Window(editor);
    ShowWindow(Window(editor == CellEditor::Text ? CellEditor::DropDown : CellEditor::Text), SW_HIDE);
    if (editor == CellEditor::Text) {
        MoveWindow(edit_, 0, 0, width, height, FALSE);
        SetWindowTextA(edit_, text.c_str());
    } else {
        int itemHeight = static_cast<int>(SendMessageA(combo_, CB_GETITEMHEIGHT, 0, 0));
        MoveWindow(combo_, 0, 0, width, height + kListRows * itemHeight, FALSE);
        LRESULT index = SendMessageA(combo_, CB_FINDSTRINGEXACT, static_cast<WPARAM>(-1),
                                     reinterpret_cast<LPARAM>(text.c_str()));
        SendMessageA(combo_, CB_SETCURSEL, static_cast<WPARAM>(index), 0);
        // The list's own field may be taller than a row.
        RECT field{};
        GetWindowRect(combo_, &field);
        height = std::max(height, static_cast<int>(field.bottom - field.top));
    }
    SetWindowPos(hwnd_, HWND_TOP, cell.left, cell.top, width, height, SWP_SHOWWINDOW);
    ShowWindow(shown, SW_SHOW);
    SetFocus(shown);
    if (editor == CellEditor::Text) SendMessageA(edit_, EM_SETSEL, 0, -1);
}

void CellEditorsWin::Hide(CellEditor editor) {
    HWND window = Window(editor);
    hiding_ = true;
    bool focused = GetFocus() == window;
    ShowWindow(window, SW_HIDE);
    ShowWindow(hwnd_, SW_HIDE);
    // A hidden control would keep the keyboard.
    if (focused) SetFocus(list_);
    hiding_ = false;
}

bool CellEditorsWin::Visible(CellEditor editor) const { return IsWindowVisible(Window(editor)) != FALSE; }

std::string CellEditorsWin::Text(CellEditor editor) const {
    return editor == CellEditor::Text ? WindowTextOf(edit_) : ComboChoice(combo_);
}

void CellEditorsWin::SetText(const std::string& text, bool selectAll) {
    SetWindowTextA(edit_, text.c_str());
    int end = static_cast<int>(text.size());
    SendMessageA(edit_, EM_SETSEL, selectAll ? 0 : end, end);
}

LRESULT CALLBACK CellEditorsWin::EditorProc(HWND editor, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* self = reinterpret_cast<CellEditorsWin*>(GetWindowLongPtrA(editor, GWLP_USERDATA));
    if (!self) return DefWindowProcA(editor, message, wParam, lParam);
    WNDPROC original = editor == self->edit_ ? self->editProc_ : self->comboProc_;
    CellEditor which = editor == self->edit_ ? CellEditor::Text : CellEditor::DropDown;
    try {
        switch (message) {
            case WM_GETDLGCODE: {
                // The window's dialog keys would otherwise take Return and Escape.
                const MSG* pending = reinterpret_cast<const MSG*>(lParam);
                LRESULT code = CallWindowProcA(original, editor, message, wParam, lParam);
                if (pending && pending->message == WM_KEYDOWN && IsEditorKey(pending->wParam))
                    code |= DLGC_WANTMESSAGE;
                return code;
            }
            case WM_KEYDOWN:
                if (IsEditorKey(wParam) && self->onKey && self->onKey(which, static_cast<int>(wParam))) return 0;
                break;
            case WM_CHAR:
                // The characters of the swallowed keys would only beep.
                if (IsEditorKey(wParam)) return 0;
                break;
            case WM_NCDESTROY:
                SetWindowLongPtrA(editor, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(original));
                SetWindowLongPtrA(editor, GWLP_USERDATA, 0);
                break;
        }
    } catch (...) {
        // Nothing may unwind through the system's code.
        return 0;
    }
    return CallWindowProcA(original, editor, message, wParam, lParam);
}

void CellEditorsWin::OnCommand(WPARAM wParam) {
    CellEditor editor = LOWORD(wParam) == kIdText ? CellEditor::Text : CellEditor::DropDown;
    switch (HIWORD(wParam)) {
        case EN_CHANGE:
        case CBN_SELCHANGE:
            if (onChange) onChange(editor);
            break;
        case EN_KILLFOCUS:
        case CBN_KILLFOCUS:
            if (!hiding_ && onFocusLost) onFocusLost(editor);
            break;
    }
}

LRESULT CellEditorsWin::HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND) {
        OnCommand(wParam);
        return 0;
    }
    return DefWindowProcA(hwnd, message, wParam, lParam);
}
