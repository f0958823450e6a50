#include "app/step_list_win.h"

#include <algorithm>

#include <windowsx.h>

#include "platform/failure_trace_win.h"

namespace {
constexpr DWORD kListStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_SHOWSELALWAYS | LVS_OWNERDATA;
// No double buffering: the control then leaves its background to
// WM_ERASEBKGND, where the grid's picture is tiled.
constexpr DWORD kListExStyle = LVS_EX_CHECKBOXES | LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES;
// Posted to the list when the steps changed; it arrives once the program
// is idle again, however many changes came before it.
constexpr UINT kShowChanges = WM_APP + 1;
// The state-image indexes of the check boxes.
constexpr UINT kUnchecked = INDEXTOSTATEIMAGEMASK(1);
constexpr UINT kChecked = INDEXTOSTATEIMAGEMASK(2);

// Colours with the top bit set name a system colour by its index.
COLORREF ScreenColour(std::uint32_t colour) {
    if (colour & 0x80000000u) return GetSysColor(static_cast<int>(colour & 0xFFu));
    return static_cast<COLORREF>(colour);
}

// The picture is drawn for 96 DPI; other DPIs get it scaled.
OwnedBitmap ScaledCopy(HBITMAP source, int dpi, SIZE& size) {
    BITMAP info{};
    GetObjectA(source, sizeof info, &info);
    size = {std::max(1, MulDiv(info.bmWidth, dpi, 96)), std::max(1, MulDiv(info.bmHeight, dpi, 96))};
    HDC screen = GetDC(nullptr);
    OwnedMemoryDc from(CreateCompatibleDC(screen));
    OwnedMemoryDc to(CreateCompatibleDC(screen));
    OwnedBitmap copy(CreateCompatibleBitmap(screen, size.cx, size.cy));
    ReleaseDC(nullptr, screen);
    HGDIOBJ oldFrom = SelectObject(from.Get(), source);
    HGDIOBJ oldTo = SelectObject(to.Get(), copy.Get());
    SetStretchBltMode(to.Get(), HALFTONE);
    StretchBlt(to.Get(), 0, 0, size.cx, size.cy, from.Get(), 0, 0, info.bmWidth, info.bmHeight, SRCCOPY);
    SelectObject(from.Get(), oldFrom);
    SelectObject(to.Get(), oldTo);
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
LRESULT CALLBACK StepListWin::ListProc(HWND list, UINT message, WPARAM wParam, LPARAM lParam) {
    auto* self = reinterpret_cast<StepListWin*>(GetWindowLongPtrW(list, GWLP_USERDATA));
    if (!self) return DefWindowProcW(list, message, wParam, lParam);
    if (message == WM_ERASEBKGND && self->picture_) {
        PaintBackground(list, reinterpret_cast<HDC>(wParam), self->picture_.Get(), self->pictureSize_);
        return TRUE;
    }
    if (message == kShowChanges) {
        self->ApplyPendingChanges();
        return 0;
    }
    if (message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN) self->OnPress(lParam);
    WNDPROC original = self->listProc_;
    if (message == WM_NCDESTROY) {
        SetWindowLongPtrW(list, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(original));
        SetWindowLongPtrW(list, GWLP_USERDATA, 0);
    }
    LRESULT result = CallWindowProcW(original, list, message, wParam, lParam);
    // The header is the list's own child, so its news of a dragged column
    // edge arrives here.
    if (message == WM_NOTIFY) self->TakeUserColumnWidths();
    return result;
}

StepListWin::~StepListWin() { steps_.SetObserver(nullptr); }

int StepListWin::RowAt(POINT point) const {
    LVHITTESTINFO hit{};
    hit.pt = point;
    SendMessageA(list_, LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    // Full-row selection: any point of a row's line is on the row.
    return hit.iItem >= 0 ? hit.iItem + 1 : 0;
}

void StepListWin::OnPress(LPARAM pointer) {
    if (!onPress) return;
    POINT point{GET_X_LPARAM(pointer), GET_Y_LPARAM(pointer)};
    int contentX = point.x + GetScrollPos(list_, SB_HORZ);
    onPress(PixelsToTwips(contentX, dpi_), RowAt(point));
}

bool StepListWin::Create(HWND parent, int id, int dpi, OwnedBitmap background) {
    dpi_ = dpi;
    pictureSource_ = std::move(background);
    list_ = CreateWindowExA(WS_EX_CLIENTEDGE, WC_LISTVIEWA, "", kListStyle, 0, 0, 0, 0, parent,
                            reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleA(nullptr), nullptr);
    if (!list_) {
        ReportLastError("CreateWindowExA");
        return false;
    }
    SendMessageA(list_, LVM_SETEXTENDEDLISTVIEWSTYLE, kListExStyle, kListExStyle);
    // The check marks are the steps', so the list asks for them as for the texts.
    SendMessageA(list_, LVM_SETCALLBACKMASK, LVIS_STATEIMAGEMASK, 0);
    SetWindowLongPtrW(list_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    listProc_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(list_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&StepListWin::ListProc)));
    if (pictureSource_) {
        ScalePicture();
        SendMessageA(list_, LVM_SETTEXTBKCOLOR, 0, CLR_NONE);
    }
    steps_.SetObserver(this);
    for (int column = 0; column < steps_.ColumnCount(); ++column) ColumnAdded(column);
    RowCountChanged();
    return true;
}

void StepListWin::Move(const PixelRect& rect) {
    MoveWindow(list_, rect.left, rect.top, rect.width, rect.height, TRUE);
}

void StepListWin::SetMultiSelect(bool multiple) {
    LONG_PTR style = GetWindowLongPtrA(list_, GWL_STYLE);
    SetWindowLongPtrA(list_, GWL_STYLE, multiple ? style & ~LVS_SINGLESEL : style | LVS_SINGLESEL);
}

void StepListWin::SetFont(HFONT font) { SendMessageA(list_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE); }

void StepListWin::OnDpiChanged(int dpi) {
    dpi_ = dpi;
    sizingColumns_ = true;
    for (int column = 0; column < steps_.ColumnCount(); ++column) {
        SendMessageA(list_, LVM_SETCOLUMNWIDTH, column, TwipsToPixels(steps_.ColumnWidth(column), dpi));
    }
    sizingColumns_ = false;
    ScalePicture();
}

void StepListWin::ScalePicture() {
    if (!pictureSource_) return;
    OwnedBitmap scaled = ScaledCopy(pictureSource_.Get(), dpi_, pictureSize_);
    picture_.Reset(CreatePatternBrush(scaled.Get()));
    InvalidateRect(list_, nullptr, TRUE);
}

void StepListWin::ScheduleUpdate() {
    if (updatePosted_ || !list_) return;
    updatePosted_ = PostMessageA(list_, kShowChanges, 0, 0) != 0;
}

void StepListWin::RowCountChanged() {
    countChanged_ = true;
    ScheduleUpdate();
}

void StepListWin::RowChanged(int row) {
    if (firstChangedRow_ == 0) {
        firstChangedRow_ = lastChangedRow_ = row;
    } else {
        firstChangedRow_ = std::min(firstChangedRow_, row);
        lastChangedRow_ = std::max(lastChangedRow_, row);
    }
    ScheduleUpdate();
}

void StepListWin::SelectionChanged(int row) {
    if (showingSelection_) return;
    selectionChanges_.push_back(row);
    ScheduleUpdate();
}

void StepListWin::ColumnAdded(int column) {
    if (!list_) return;
    const GridColumn& added = steps_.Column(column);
    LVCOLUMNA item{};
    item.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
    item.fmt = added.centred ? LVCFMT_CENTER : LVCFMT_LEFT;
    item.cx = TwipsToPixels(added.widthTwips, dpi_);
    item.pszText = const_cast<char*>(added.header.c_str());
    sizingColumns_ = true;
    SendMessageA(list_, LVM_INSERTCOLUMNA, column, reinterpret_cast<LPARAM>(&item));
    sizingColumns_ = false;
}

void StepListWin::ApplyPendingChanges() {
    updatePosted_ = false;
    showingSelection_ = true;
    if (countChanged_) {
        // Rows came and went, so every index may now name another step.
        SendMessageA(list_, LVM_SETITEMCOUNT, steps_.RowCount(), LVSICF_NOSCROLL);
        // Clearing a selection that is not there would still visit every row.
        if (SendMessageA(list_, LVM_GETSELECTEDCOUNT, 0, 0) > 0) {
            LVITEMA none{};
            none.stateMask = LVIS_SELECTED;
            SendMessageA(list_, LVM_SETITEMSTATE, static_cast<WPARAM>(-1), reinterpret_cast<LPARAM>(&none));
        }
        for (int row = 1; row <= steps_.RowCount(); ++row) {
            if (steps_.Selected(row)) ShowSelection(row);
        }
        InvalidateRect(list_, nullptr, TRUE);
    } else {
        for (int row : selectionChanges_) {
            if (row <= steps_.RowCount()) ShowSelection(row);
        }
        if (firstChangedRow_ != 0) SendMessageA(list_, LVM_REDRAWITEMS, firstChangedRow_ - 1, lastChangedRow_ - 1);
    }
    showingSelection_ = false;
    countChanged_ = false;
    selectionChanges_.clear();
    firstChangedRow_ = lastChangedRow_ = 0;
}

void StepListWin::ShowSelection(int row) {
    LVITEMA item{};
    item.state = steps_.Selected(row) ? LVIS_SELECTED : 0;
    item.stateMask = LVIS_SELECTED;
    SendMessageA(list_, LVM_SETITEMSTATE, row - 1, reinterpret_cast<LPARAM>(&item));
}

LRESULT StepListWin::OnNotify(NMHDR& header) {
    switch (header.code) {
        case LVN_GETDISPINFOA: FillItem(reinterpret_cast<NMLVDISPINFOA&>(header).item); return 0;
        case NM_CUSTOMDRAW: return OnCustomDraw(reinterpret_cast<NMLVCUSTOMDRAW&>(header));
        case LVN_ITEMCHANGED: OnItemChanged(reinterpret_cast<NMLISTVIEW&>(header)); return 0;
        case LVN_ODSTATECHANGED: {
            auto& range = reinterpret_cast<NMLVODSTATECHANGE&>(header);
            if ((range.uNewState ^ range.uOldState) & LVIS_SELECTED) {
                SelectRange(range.iFrom + 1, range.iTo + 1, (range.uNewState & LVIS_SELECTED) != 0);
            }
            return 0;
        }
        case NM_CLICK: {
            LVHITTESTINFO hit{};
            hit.pt = reinterpret_cast<NMITEMACTIVATE&>(header).ptAction;
            SendMessageA(list_, LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
            if (hit.iItem >= 0 && (hit.flags & LVHT_ONITEMSTATEICON)) ToggleCheck(hit.iItem);
            if (onClick) onClick();
            return 0;
        }
        case NM_RCLICK:
            // The click of the right button comes after its menu, as a left one would.
            if (onRightClick) onRightClick(RowAt(reinterpret_cast<NMITEMACTIVATE&>(header).ptAction));
            if (onClick) onClick();
            return 0;
        case LVN_KEYDOWN: {
            WORD key = reinterpret_cast<NMLVKEYDOWN&>(header).wVKey;
            if (key == VK_SPACE) {
                ToggleCheck(static_cast<int>(SendMessageA(list_, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED)));
            } else if (onKey) {
                onKey(key);
            }
            return 0;
        }
        default: return 0;
    }
}

void StepListWin::FillItem(LVITEMA& item) const {
    int row = item.iItem + 1;
    if (row < 1 || row > steps_.RowCount()) return;
    const StepRow& step = steps_.Row(row);
    if ((item.mask & LVIF_TEXT) && item.pszText && item.cchTextMax > 0 && item.iSubItem >= 0 &&
        item.iSubItem < kColumnCount) {
        lstrcpynA(item.pszText, step.cells[static_cast<std::size_t>(item.iSubItem)].c_str(), item.cchTextMax);
    }
    if (item.mask & LVIF_STATE) {
        item.state = (item.state & ~LVIS_STATEIMAGEMASK) | (step.checked ? kChecked : kUnchecked);
        item.stateMask |= LVIS_STATEIMAGEMASK;
    }
}

LRESULT StepListWin::OnCustomDraw(NMLVCUSTOMDRAW& draw) const {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
    if (draw.nmcd.dwDrawStage != CDDS_ITEMPREPAINT) return CDRF_DODEFAULT;
    int row = static_cast<int>(draw.nmcd.dwItemSpec) + 1;
    if (row > steps_.RowCount()) return CDRF_DODEFAULT;
    draw.clrText = ScreenColour(steps_.RowColour(row));
    return CDRF_NEWFONT;
}

// The user's selection goes into the steps. A check box the list toggles by
// itself is passed over: the click and the Space key toggle it below, the
// same on every version of the control.
void StepListWin::OnItemChanged(const NMLISTVIEW& change) {
    if (showingSelection_ || !(change.uChanged & LVIF_STATE)) return;
    if (!((change.uNewState ^ change.uOldState) & LVIS_SELECTED)) return;
    bool selected = (change.uNewState & LVIS_SELECTED) != 0;
    if (change.iItem < 0) {
        SelectRange(1, steps_.RowCount(), selected);
    } else {
        SelectRange(change.iItem + 1, change.iItem + 1, selected);
    }
}

void StepListWin::SelectRange(int first, int last, bool selected) {
    showingSelection_ = true;
    for (int row = std::max(first, 1); row <= std::min(last, steps_.RowCount()); ++row) steps_.SetSelected(row, selected);
    showingSelection_ = false;
}

// A toggled row that is selected takes the other selected rows with it.
void StepListWin::ToggleCheck(int index) {
    int row = index + 1;
    if (row < 1 || row > steps_.RowCount()) return;
    bool checked = !steps_.Checked(row);
    steps_.SetChecked(row, checked);
    if (!steps_.Selected(row)) return;
    for (int other = 1; other <= steps_.RowCount(); ++other) {
        if (steps_.Selected(other)) steps_.SetChecked(other, checked);
    }
}

void StepListWin::TakeUserColumnWidths() {
    if (sizingColumns_) return;
    for (int column = 0; column < steps_.ColumnCount(); ++column) {
        int pixels = static_cast<int>(SendMessageA(list_, LVM_GETCOLUMNWIDTH, column, 0));
        if (pixels != TwipsToPixels(steps_.ColumnWidth(column), dpi_)) {
            steps_.SetColumnWidth(column, PixelsToTwips(pixels, dpi_));
        }
    }
}
