#include "app/step_list_win.h"

#include <algorithm>
#include <stdexcept>

#include "core/runtime_error.h"

namespace {
constexpr DWORD kListStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_SHOWSELALWAYS;
// No double buffering: the control then leaves its background to
// WM_ERASEBKGND, where the grid's picture is tiled.
constexpr DWORD kListExStyle = LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES;
// Painting stops while rows change in bulk and comes back when the program
// is idle again: WM_TIMER arrives only when no other message waits.
constexpr UINT_PTR kRedrawTimerId = 1;
constexpr UINT kRedrawDelayMs = 50;
// The state-image indexes of the check boxes.
constexpr UINT kUnchecked = INDEXTOSTATEIMAGEMASK(1);
constexpr UINT kChecked = INDEXTOSTATEIMAGEMASK(2);
constexpr std::size_t kFirstTextBuffer = 256;

// Colours with the top bit set name a system colour by its index.
COLORREF ScreenColour(std::uint32_t colour) {
    if (colour & 0x80000000u) return GetSysColor(static_cast<int>(colour & 0xFFu));
    return static_cast<COLORREF>(colour);
}

// The picture is drawn for 96 DPI; other DPIs get it scaled.
HBITMAP ScaledCopy(HBITMAP source, int dpi, SIZE& size) {
    BITMAP info{};
    GetObjectA(source, sizeof info, &info);
    size = {std::max(1, MulDiv(info.bmWidth, dpi, 96)), std::max(1, MulDiv(info.bmHeight, dpi, 96))};
    HDC screen = GetDC(nullptr);
    HDC from = CreateCompatibleDC(screen);
    HDC to = CreateCompatibleDC(screen);
    HBITMAP copy = CreateCompatibleBitmap(screen, size.cx, size.cy);
    HGDIOBJ oldFrom = SelectObject(from, source);
    HGDIOBJ oldTo = SelectObject(to, copy);
    SetStretchBltMode(to, HALFTONE);
    StretchBlt(to, 0, 0, size.cx, size.cy, from, 0, 0, info.bmWidth, info.bmHeight, SRCCOPY);
    SelectObject(from, oldFrom);
    SelectObject(to, oldTo);
    DeleteDC(from);
    DeleteDC(to);
    ReleaseDC(nullptr, screen);
    return copy;
}

// Tiles the picture so that it moves with the rows when they scroll.
void PaintBackground(HWND list, HDC dc, HBRUSH picture, SIZE tile) {
    RECT client;
    GetClientRect(list, &client);
    RECT firstRow{LVIR_BOUNDS};
    int topIndex = static_cast<int>(SendMessageA(list, LVM_GETTOPINDEX, 0, 0));
    int rowHeight = SendMessageA(list, LVM_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&firstRow))
                        ? firstRow.bottom - firstRow.top
                        : 0;
    int scrolledX = GetScrollPos(list, SB_HORZ);
    int scrolledY = topIndex * rowHeight;
    SetBrushOrgEx(dc, -(scrolledX % tile.cx), -(scrolledY % tile.cy), nullptr);
    FillRect(dc, &client, picture);
}

}  // namespace

// The list view's own window procedure is wrapped by hand: the common
// controls' subclass helper looks its data up in a window property on every
// message, which Wine answers through its server.
LRESULT CALLBACK StepGridWin::ListProc(HWND list, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* grid = reinterpret_cast<StepGridWin*>(GetWindowLongPtrW(list, GWLP_USERDATA));
    if (!grid) return DefWindowProcW(list, message, wParam, lParam);
    if (message == WM_ERASEBKGND && grid->picture_) {
        PaintBackground(list, reinterpret_cast<HDC>(wParam), grid->picture_, grid->pictureSize_);
        return TRUE;
    }
    if (message == WM_TIMER && wParam == kRedrawTimerId) {
        grid->ResumeRedraw();
        return 0;
    }
    WNDPROC original = grid->listProc_;
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(list, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(original));
        SetWindowLongPtrW(list, GWLP_USERDATA, 0);
    }
    return CallWindowProcW(original, list, message, wParam, lParam);
}

StepGridWin::~StepGridWin() {
    if (picture_) DeleteObject(picture_);
    if (pictureSource_) DeleteObject(pictureSource_);
}

bool StepGridWin::Create(HWND parent, int id, int dpi, HBITMAP background) {
    dpi_ = dpi;
    list_ = CreateWindowExA(WS_EX_CLIENTEDGE, WC_LISTVIEWA, "", kListStyle, 0, 0, 0, 0, parent,
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleA(nullptr), nullptr);
    if (!list_) return false;
    SendMessageA(list_, LVM_SETEXTENDEDLISTVIEWSTYLE, kListExStyle, kListExStyle);
    SetWindowLongPtrW(list_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    listProc_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(list_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&StepGridWin::ListProc)));
    if (background) {
        pictureSource_ = background;
        ScalePicture();
        SendMessageA(list_, LVM_SETTEXTBKCOLOR, 0, CLR_NONE);
    }
    return true;
}

void StepGridWin::Move(const PixelRect& rect) {
    MoveWindow(list_, rect.left, rect.top, rect.width, rect.height, TRUE);
}

void StepGridWin::SetFont(HFONT font) { SendMessageA(list_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE); }

void StepGridWin::OnDpiChanged(int dpi) {
    for (int column = 0; column < ColumnCount(); ++column) {
        givenTwips_[column] = ColumnWidth(column);
        SendMessageA(list_, LVM_SETCOLUMNWIDTH, column, TwipsToPixels(givenTwips_[column], dpi));
    }
    dpi_ = dpi;
    ScalePicture();
}

void StepGridWin::ScalePicture() {
    if (!pictureSource_) return;
    if (picture_) DeleteObject(picture_);
    HBITMAP scaled = ScaledCopy(pictureSource_, dpi_, pictureSize_);
    picture_ = CreatePatternBrush(scaled);
    DeleteObject(scaled);
    InvalidateRect(list_, nullptr, TRUE);
}

void StepGridWin::SuspendRedraw() {
    if (redrawSuspended_) return;
    redrawSuspended_ = true;
    SendMessageA(list_, WM_SETREDRAW, FALSE, 0);
    ::SetTimer(list_, kRedrawTimerId, kRedrawDelayMs, nullptr);
}

void StepGridWin::ResumeRedraw() {
    KillTimer(list_, kRedrawTimerId);
    if (!redrawSuspended_) return;
    redrawSuspended_ = false;
    SendMessageA(list_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list_, nullptr, TRUE);
}

LRESULT StepGridWin::OnCustomDraw(NMLVCUSTOMDRAW& draw) {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
    std::size_t index = draw.nmcd.dwItemSpec;
    if (index < colours_.size()) {
        draw.clrText = ScreenColour(colours_[index]);
        return CDRF_NEWFONT;
    }
    return CDRF_DODEFAULT;
}

// Every row goes through InsertRow, so the marks count the rows.
int StepGridWin::RowCount() const { return static_cast<int>(marks_.size()); }

void StepGridWin::InsertRow(int row) {
    SuspendRedraw();
    if (row < 1 || row > RowCount() + 1) RaiseSubscriptOutOfRange();
    LVITEMA item{};
    item.mask = LVIF_TEXT | LVIF_STATE;
    item.iItem = row - 1;
    item.pszText = const_cast<char*>("");
    item.state = kUnchecked;
    item.stateMask = LVIS_STATEIMAGEMASK;
    int index = static_cast<int>(SendMessageA(list_, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item)));
    if (index < 0) throw std::runtime_error("The grid could not take another row");
    marks_.insert(marks_.begin() + index, std::string());
    colours_.insert(colours_.begin() + index, kButtonTextColour);
}

void StepGridWin::RemoveRow(int row) {
    SuspendRedraw();
    int index = Index(row);
    SendMessageA(list_, LVM_DELETEITEM, index, 0);
    marks_.erase(marks_.begin() + index);
    colours_.erase(colours_.begin() + index);
}

void StepGridWin::Clear() {
    SuspendRedraw();
    SendMessageA(list_, LVM_DELETEALLITEMS, 0, 0);
    marks_.clear();
    colours_.clear();
}

std::string StepGridWin::Cell(int row, int column) const {
    int index = Index(row);
    CheckColumn(column);
    std::string text(kFirstTextBuffer, '\0');
    for (;;) {
        LVITEMA item{};
        item.iSubItem = column;
        item.pszText = text.data();
        item.cchTextMax = static_cast<int>(text.size());
        auto length = static_cast<std::size_t>(
            SendMessageA(list_, LVM_GETITEMTEXTA, index, reinterpret_cast<LPARAM>(&item)));
        // A full buffer may mean a longer text: ask again with a larger one.
        if (length + 1 < text.size()) {
            text.resize(length);
            return text;
        }
        text.resize(text.size() * 2);
    }
}

void StepGridWin::SetCell(int row, int column, const std::string& text) {
    SuspendRedraw();
    int index = Index(row);
    CheckColumn(column);
    LVITEMA item{};
    item.iSubItem = column;
    item.pszText = const_cast<char*>(text.c_str());
    SendMessageA(list_, LVM_SETITEMTEXTA, index, reinterpret_cast<LPARAM>(&item));
}

bool StepGridWin::Checked(int row) const { return ItemState(row, LVIS_STATEIMAGEMASK) == kChecked; }

void StepGridWin::SetChecked(int row, bool checked) {
    SetItemState(row, checked ? kChecked : kUnchecked, LVIS_STATEIMAGEMASK);
}

std::string StepGridWin::Mark(int row) const { return marks_.at(static_cast<std::size_t>(Index(row))); }

void StepGridWin::SetMark(int row, const std::string& mark) { marks_.at(static_cast<std::size_t>(Index(row))) = mark; }

bool StepGridWin::Selected(int row) const { return ItemState(row, LVIS_SELECTED) != 0; }

void StepGridWin::SetSelected(int row, bool selected) {
    SetItemState(row, selected ? LVIS_SELECTED : 0, LVIS_SELECTED);
}

void StepGridWin::SetRowColour(int row, std::uint32_t colour) {
    int index = Index(row);
    if (colours_.at(static_cast<std::size_t>(index)) == colour) return;
    colours_[static_cast<std::size_t>(index)] = colour;
    SendMessageA(list_, LVM_REDRAWITEMS, index, index);
}

void StepGridWin::AddColumn(const std::string& header, double widthTwips, bool centred) {
    LVCOLUMNA column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
    column.fmt = centred ? LVCFMT_CENTER : LVCFMT_LEFT;
    column.cx = TwipsToPixels(widthTwips, dpi_);
    givenTwips_.push_back(widthTwips);
    column.pszText = const_cast<char*>(header.c_str());
    SendMessageA(list_, LVM_INSERTCOLUMNA, ColumnCount(), reinterpret_cast<LPARAM>(&column));
}

int StepGridWin::ColumnCount() const {
    HWND header = reinterpret_cast<HWND>(SendMessageA(list_, LVM_GETHEADER, 0, 0));
    return header ? static_cast<int>(SendMessageA(header, HDM_GETITEMCOUNT, 0, 0)) : 0;
}

double StepGridWin::ColumnWidth(int column) const {
    CheckColumn(column);
    int pixels = static_cast<int>(SendMessageA(list_, LVM_GETCOLUMNWIDTH, column, 0));
    double given = givenTwips_.at(column);
    return pixels == TwipsToPixels(given, dpi_) ? given : PixelsToTwips(pixels, dpi_);
}

int StepGridWin::Index(int row) const {
    if (row < 1 || row > RowCount()) RaiseSubscriptOutOfRange();
    return row - 1;
}

void StepGridWin::CheckColumn(int column) const {
    if (column < 0 || column >= kColumnCount) RaiseSubscriptOutOfRange();
}

UINT StepGridWin::ItemState(int row, UINT mask) const {
    return static_cast<UINT>(SendMessageA(list_, LVM_GETITEMSTATE, Index(row), mask));
}

void StepGridWin::SetItemState(int row, UINT state, UINT mask) {
    SuspendRedraw();
    LVITEMA item{};
    item.state = state;
    item.stateMask = mask;
    SendMessageA(list_, LVM_SETITEMSTATE, Index(row), reinterpret_cast<LPARAM>(&item));
}
