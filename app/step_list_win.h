#pragma once
// lstMain on screen: a virtual report-style list view with check boxes that
// shows the steps of a StepGrid. The control holds no rows of its own; it asks
// for each cell as it paints. Changes of the steps reach it through the
// observer calls and are applied once the program is idle again, so a script
// of many thousand rows costs one update, not one per row. What the user does
// (selecting, ticking a check box, dragging a column edge) goes back into the
// steps at once.
#include <functional>
#include <vector>

#include "app/layout.h"
#include "platform/owned_win.h"
#include "platform/win32.h"
#include "script/step_grid.h"

#include <commctrl.h>

class StepListWin : public StepGridObserver {
public:
    explicit StepListWin(StepGrid& steps) : steps_(steps) {}
    ~StepListWin() override;
    StepListWin(const StepListWin&) = delete;
    StepListWin& operator=(const StepListWin&) = delete;

    // Creates the list view as a child of `parent`, with the picture
    // `background` tiled behind the rows.
    bool Create(HWND parent, int id, int dpi, OwnedBitmap background);
    HWND Handle() const { return list_; }
    void Move(const PixelRect& rect);
    void SetFont(HFONT font);
    // Off: one row at a time can be selected (LVS_SINGLESEL).
    void SetMultiSelect(bool multiple);
    // Keeps the columns the same size in twips at the new DPI.
    void OnDpiChanged(int dpi);
    // The list view's notifications, which its parent receives.
    LRESULT OnNotify(NMHDR& header);

    void RowCountChanged() override;
    void RowChanged(int row) override;
    void SelectionChanged(int row) override;
    void ColumnAdded(int column) override;

    // A mouse button went down: the 1-based row under the pointer (0 for
    // none) and the pointer's place in twips from the first column's left
    // edge, scrolling included.
    std::function<void(double xTwips, int row)> onPress;
    // A left click on the list, after it has selected the row.
    std::function<void()> onClick;
    // The right button went up over the list: the 1-based row under the
    // pointer, 0 for none.
    std::function<void(int row)> onRightClick;
    // A key pressed in the list (Space, which ticks the row, aside).
    std::function<void(int keyCode)> onKey;

private:
    void OnPress(LPARAM pointer);
    int RowAt(POINT point) const;
    static LRESULT CALLBACK ListProc(HWND list, UINT message, WPARAM wParam, LPARAM lParam);
    void ScheduleUpdate();
    void ApplyPendingChanges();
    void ShowSelection(int row);
    void FillItem(LVITEMA& item) const;
    LRESULT OnCustomDraw(NMLVCUSTOMDRAW& draw) const;
    void OnItemChanged(const NMLISTVIEW& change);
    void SelectRange(int first, int last, bool selected);
    void ToggleCheck(int index);
    void TakeUserColumnWidths();
    void ScalePicture();

    StepGrid& steps_;
    HWND list_ = nullptr;
    WNDPROC listProc_ = nullptr;
    int dpi_ = 96;
    OwnedBitmap pictureSource_;
    OwnedBrush picture_;
    SIZE pictureSize_{1, 1};
    // Changes of the steps not shown yet.
    bool updatePosted_ = false;
    bool countChanged_ = false;
    int firstChangedRow_ = 0;
    int lastChangedRow_ = 0;
    std::vector<int> selectionChanges_;
    // Set while the list is told the steps' selection, whose echo is ignored.
    bool showingSelection_ = false;
    // Set while the program itself sizes the columns.
    bool sizingColumns_ = false;
};
