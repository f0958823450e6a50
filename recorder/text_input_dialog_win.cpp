#include "recorder/text_input_dialog_win.h"

#include <algorithm>

#include "core/resource_ids.h"
#include "platform/control_text_win.h"
#include "platform/dpi_win.h"
#include "platform/message_pump_win.h"
#include "platform/twips.h"

namespace {

constexpr const char* kDialogClass = "KlickwerkTextInput";
constexpr const char* kPanelClass = "KlickwerkPickerPanel";
constexpr const char* kPickerClass = "KlickwerkWindowPicker";
constexpr const char* kTitle = "Keystroke text";

// Places in twips.
constexpr double kMargin = 150;
constexpr double kColumnGap = 300;
constexpr double kTextHeight = 345;
constexpr double kButtonHeight = 375;
constexpr double kButtonWidth = 1150;
constexpr double kPickButtonWidth = 1800;
constexpr double kButtonGap = 120;
constexpr double kPanelWidth = 5000;
constexpr double kPanelHeight = 1900;
constexpr double kPanelInset = 240;
constexpr double kPanelTop = 400;
constexpr int kPickerIconPixelsAt96 = 32;

enum ChildId : int { kIdText = 10, kIdPick, kIdPicker, kIdPickerCancel };
// picDrag's notification to its parent, in WM_COMMAND's high word.
constexpr WORD kPickerDropped = 1;

void SetFont(HWND window, HFONT font) { SendMessageA(window, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE); }

HICON LoadPickerIcon(int id, int size) {
    return static_cast<HICON>(
        LoadImageA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(id), IMAGE_ICON, size, size, LR_DEFAULTCOLOR));
}

// The pixels a label needs to show its text in `font`.
SIZE TextExtent(HWND label, HFONT font) {
    std::string text = WindowTextOf(label);
    HDC dc = GetDC(label);
    HGDIOBJ previous = SelectObject(dc, font);
    RECT rect{};
    DrawTextA(dc, text.c_str(), static_cast<int>(text.size()), &rect, DT_CALCRECT | DT_NOPREFIX | DT_LEFT);
    SelectObject(dc, previous);
    ReleaseDC(label, dc);
    return {rect.right - rect.left, rect.bottom - rect.top};
}

}  // namespace

// picDrag

bool WindowPickerWin::Create(HWND parent, int id) {
    if (!RegisterWindowClass(kPickerClass, nullptr, reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1))) return false;
    if (!CreateWindowOfClass(kPickerClass, "Window picker", WS_CHILD | WS_VISIBLE, 0, 0, 0, 0, 0, parent))
        return false;
    SetWindowLongPtrA(hwnd_, GWLP_ID, id);
    return true;
}

void WindowPickerWin::SetDpi(int dpi) {
    iconSize_ = MulDiv(kPickerIconPixelsAt96, dpi, 96);
    full_.Reset(LoadPickerIcon(IDI_PICKER_FULL, iconSize_));
    empty_.Reset(LoadPickerIcon(IDI_PICKER_EMPTY, iconSize_));
    SetWindowPos(hwnd_, nullptr, 0, 0, iconSize_, iconSize_, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void WindowPickerWin::Paint() {
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(hwnd_, &paint);
    FillRect(dc, &paint.rcPaint, reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1));
    DrawIconEx(dc, 0, 0, dragging_ ? empty_.Get() : full_.Get(), iconSize_, iconSize_, 0, nullptr, DI_NORMAL);
    EndPaint(hwnd_, &paint);
}

void WindowPickerWin::EndDrag(bool dropped) {
    dragging_ = false;
    if (GetCapture() == hwnd_) ReleaseCapture();
    InvalidateRect(hwnd_, nullptr, TRUE);
    if (dropped) {
        SendMessageA(GetParent(hwnd_), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(hwnd_), kPickerDropped),
                     reinterpret_cast<LPARAM>(hwnd_));
    }
}

LRESULT WindowPickerWin::HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_PAINT: Paint(); return 0;
        case WM_LBUTTONDOWN:
            dragging_ = true;
            SetCapture(hwnd_);
            SetCursor(LoadCursorA(nullptr, IDC_CROSS));
            InvalidateRect(hwnd_, nullptr, TRUE);
            return 0;
        case WM_MOUSEMOVE:
            if (dragging_) SetCursor(LoadCursorA(nullptr, IDC_CROSS));
            return 0;
        case WM_LBUTTONUP:
            if (dragging_) EndDrag(true);
            return 0;
        case WM_CAPTURECHANGED:
            // Another window took the pointer: the drag is over without a pick.
            if (dragging_) EndDrag(false);
            return 0;
    }
    return DefWindowProcA(hwnd, message, wParam, lParam);
}

// frahWNDGet

bool PickerPanelWin::Create(HWND dialog) {
    if (!RegisterWindowClass(kPanelClass, nullptr, reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1))) return false;
    if (!CreateWindowOfClass(kPanelClass, "", WS_CHILD | WS_CLIPSIBLINGS, WS_EX_CONTROLPARENT, 0, 0, 0, 0, dialog))
        return false;
    group_ = ChildControl(hwnd_, "BUTTON", "Window title", BS_GROUPBOX, 0);
    hint_ = ChildControl(hwnd_, "STATIC",
                  "Drag the target onto a window and release the button there: the window's title is added "
                  "to the end of the text.",
                  SS_LEFT | SS_NOPREFIX, 0);
    cancel_ = ChildControl(hwnd_, "BUTTON", "Cancel", WS_TABSTOP | BS_PUSHBUTTON, kIdPickerCancel);
    return picker_.Create(hwnd_, kIdPicker);
}

void PickerPanelWin::Layout(int dpi, HFONT font) {
    auto px = [dpi](double twips) { return TwipsToPixels(twips, dpi); };
    int width = px(kPanelWidth);
    int height = px(kPanelHeight);
    SetWindowPos(hwnd_, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    PlaceChild(group_, 0, 0, width, height);
    picker_.SetDpi(dpi);
    int inset = px(kPanelInset);
    SetWindowPos(picker_.Handle(), nullptr, inset, px(kPanelTop), 0, 0, SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE);
    RECT pickerRect{};
    GetClientRect(picker_.Handle(), &pickerRect);
    int hintLeft = inset + pickerRect.right + inset;
    int buttonTop = height - inset - px(kButtonHeight);
    PlaceChild(hint_, hintLeft, px(kPanelTop), width - hintLeft - inset, buttonTop - px(kPanelTop));
    PlaceChild(cancel_, width - inset - px(kButtonWidth), buttonTop, px(kButtonWidth), px(kButtonHeight));
    for (HWND child : {group_, hint_, cancel_}) SetFont(child, font);
}

LRESULT PickerPanelWin::HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    // The dialog answers the panel's buttons and the picker.
    if (message == WM_COMMAND) return SendMessageA(GetParent(hwnd), message, wParam, lParam);
    return DefWindowProcA(hwnd, message, wParam, lParam);
}

// frmTextInput

bool TextInputDialogWin::Create(const std::array<std::string, 3>& reference) {
    if (!RegisterWindowClass(kDialogClass, nullptr, reinterpret_cast<HBRUSH>(COLOR_BTNFACE + 1))) return false;
    if (!CreateWindowOfClass(kDialogClass, kTitle, WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_CLIPCHILDREN,
                             WS_EX_DLGMODALFRAME | WS_EX_CONTROLPARENT, 0, 0, 0, 0, owner_))
        return false;
    text_ = ChildControl(hwnd_, "EDIT", "", WS_TABSTOP | WS_BORDER | ES_AUTOHSCROLL, kIdText);
    for (std::size_t i = 0; i < labels_.size(); ++i)
        labels_[i] = ChildControl(hwnd_, "STATIC", reference[i].c_str(), SS_LEFT | SS_NOPREFIX | WS_CLIPSIBLINGS, 0);
    pick_ = ChildControl(hwnd_, "BUTTON", "Window title...", WS_TABSTOP | BS_PUSHBUTTON, kIdPick);
    ok_ = ChildControl(hwnd_, "BUTTON", "OK", WS_TABSTOP | BS_DEFPUSHBUTTON, IDOK);
    cancel_ = ChildControl(hwnd_, "BUTTON", "Cancel", WS_TABSTOP | BS_PUSHBUTTON, IDCANCEL);
    if (!panel_.Create(hwnd_)) return false;
    dpi_ = WindowDpi(owner_);
    font_.Reset(CreateMessageFont(dpi_));
    Layout();
    return true;
}

void TextInputDialogWin::Layout() {
    auto px = [this](double twips) { return TwipsToPixels(twips, dpi_); };
    HFONT font = font_.Get();
    for (HWND child : {text_, labels_[0], labels_[1], labels_[2], pick_, ok_, cancel_}) SetFont(child, font);
    int margin = px(kMargin);
    int labelsTop = margin + px(kTextHeight) + margin;
    int left = margin;
    int labelsHeight = 0;
    for (HWND label : labels_) {
        SIZE extent = TextExtent(label, font);
        PlaceChild(label, left, labelsTop, extent.cx, extent.cy);
        left += extent.cx + px(kColumnGap);
        labelsHeight = std::max(labelsHeight, static_cast<int>(extent.cy));
    }
    int buttonsWidth = px(kPickButtonWidth + 2 * (kButtonGap + kButtonWidth));
    int clientWidth = std::max(left - px(kColumnGap), margin + buttonsWidth) + margin;
    int buttonTop = labelsTop + labelsHeight + margin;
    int clientHeight = buttonTop + px(kButtonHeight) + margin;
    PlaceChild(text_, margin, margin, clientWidth - 2 * margin, px(kTextHeight));
    PlaceChild(pick_, margin, buttonTop, px(kPickButtonWidth), px(kButtonHeight));
    int right = clientWidth - margin;
    PlaceChild(cancel_, right - px(kButtonWidth), buttonTop, px(kButtonWidth), px(kButtonHeight));
    PlaceChild(ok_, right - px(2 * kButtonWidth + kButtonGap), buttonTop, px(kButtonWidth), px(kButtonHeight));
    panel_.Layout(dpi_, font);
    SetWindowPos(panel_.Handle(), HWND_TOP, (clientWidth - px(kPanelWidth)) / 2,
                 labelsTop + (labelsHeight - px(kPanelHeight)) / 2, 0, 0, SWP_NOSIZE | SWP_NOACTIVATE);
    CentreOverOwner(hwnd_, owner_, clientWidth, clientHeight);
}

void TextInputDialogWin::Run(const std::array<std::string, 3>& reference, const std::string& text,
                             TextInputEvents& events) {
    if (!Create(reference)) return;
    // Filled before the events are connected: only the user's typing offers the picker.
    SetWindowTextA(text_, text.c_str());
    SendMessageA(text_, EM_SETSEL, text.size(), 0);
    events_ = &events;
    open_ = true;
    EnableWindow(owner_, FALSE);
    ShowWindow(hwnd_, SW_SHOW);
    SetFocus(text_);
    RunModalLoop(hwnd_, open_);
    // The owner is enabled first, so that it is the window activated next.
    EnableWindow(owner_, TRUE);
    events_ = nullptr;
    DestroyWindow(hwnd_);
    SetActiveWindow(owner_);
}

std::string TextInputDialogWin::Text() const { return WindowTextOf(text_); }

void TextInputDialogWin::SetText(const std::string& text) {
    SetWindowTextA(text_, text.c_str());
    SendMessageA(text_, EM_SETSEL, text.size(), text.size());
    SendMessageA(text_, EM_SCROLLCARET, 0, 0);
}

void TextInputDialogWin::SetPickerShown(bool shown) {
    HWND focusAfter = shown ? GetDlgItem(panel_.Handle(), kIdPickerCancel) : text_;
    // Focus moves first: a disabled control cannot keep it.
    if (shown) SetFocus(focusAfter);
    for (HWND control : {text_, labels_[0], labels_[1], labels_[2], ok_, cancel_}) EnableWindow(control, !shown);
    ShowWindow(panel_.Handle(), shown ? SW_SHOW : SW_HIDE);
    if (!shown) SetFocus(focusAfter);
}

bool TextInputDialogWin::PickerShown() const { return IsWindowVisible(panel_.Handle()) != FALSE; }

void TextInputDialogWin::OnCommand(int id, int code) {
    if (!events_) return;
    bool picking = PickerShown();
    switch (id) {
        case kIdText:
            if (code == EN_CHANGE) events_->TextChanged();
            break;
        case IDOK:
            if (!picking) events_->Confirm();
            break;
        case IDCANCEL:
            // Esc while picking closes only the panel.
            picking ? events_->CancelPicker() : events_->Cancel();
            break;
        case kIdPick: events_->OpenPicker(); break;
        case kIdPickerCancel: events_->CancelPicker(); break;
        case kIdPicker:
            if (code == kPickerDropped) events_->PickerDropped();
            break;
    }
}

LRESULT TextInputDialogWin::HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_COMMAND: OnCommand(LOWORD(wParam), HIWORD(wParam)); return 0;
        case DM_GETDEFID: return MAKELRESULT(IDOK, DC_HASDEFID);
        case WM_CLOSE:
            if (events_) events_->Cancel();
            return 0;
    }
    return DefWindowProcA(hwnd, message, wParam, lParam);
}
