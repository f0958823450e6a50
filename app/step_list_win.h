#pragma once
// lstMain: the step grid over a report-style list view with check boxes.
// Cell texts live in the control itself; the row marks and text colours,
// which the control cannot hold, in vectors beside it.
#include <string>
#include <vector>

#include "app/layout.h"
#include "platform/win32.h"
#include "script/step_grid.h"

#include <commctrl.h>

class StepGridWin : public StepGrid {
public:
    StepGridWin() = default;
    ~StepGridWin() override;
    StepGridWin(const StepGridWin&) = delete;
    StepGridWin& operator=(const StepGridWin&) = delete;

    // Creates the list view as a child of `parent`, with the picture
    // `background` tiled behind the rows (the grid takes the bitmap over).
    bool Create(HWND parent, int id, int dpi, HBITMAP background);
    HWND Handle() const { return list_; }
    void Move(const PixelRect& rect);
    void SetFont(HFONT font);
    // Keeps the columns the same size in twips at the new DPI.
    void OnDpiChanged(int dpi);
    // The list view's NM_CUSTOMDRAW, sent to the parent: draws each row in its colour.
    LRESULT OnCustomDraw(NMLVCUSTOMDRAW& draw);

    int RowCount() const override;
    void InsertRow(int row) override;
    void RemoveRow(int row) override;
    void Clear() override;
    std::string Cell(int row, int column) const override;
    void SetCell(int row, int column, const std::string& text) override;
    bool Checked(int row) const override;
    void SetChecked(int row, bool checked) override;
    std::string Mark(int row) const override;
    void SetMark(int row, const std::string& mark) override;
    bool Selected(int row) const override;
    void SetSelected(int row, bool selected) override;
    void SetRowColour(int row, std::uint32_t colour) override;
    void AddColumn(const std::string& header, double widthTwips, bool centred) override;
    int ColumnCount() const override;
    double ColumnWidth(int column) const override;

private:
    static LRESULT CALLBACK ListProc(HWND list, UINT message, WPARAM wParam, LPARAM lParam);
    // Bulk changes (reading a script of many thousand rows) would otherwise
    // repaint and rescroll the control once per call.
    void SuspendRedraw();
    void ResumeRedraw();
    // The list view's item index of a 1-based row; raises for rows that do not exist.
    int Index(int row) const;
    void CheckColumn(int column) const;
    void ScalePicture();
    UINT ItemState(int row, UINT mask) const;
    void SetItemState(int row, UINT state, UINT mask);

    HWND list_ = nullptr;
    WNDPROC listProc_ = nullptr;
    int dpi_ = 96;
    HBITMAP pictureSource_ = nullptr;
    HBRUSH picture_ = nullptr;
    SIZE pictureSize_{1, 1};
    bool redrawSuspended_ = false;
    std::vector<std::string> marks_;
    std::vector<std::uint32_t> colours_;
    // The widths the columns were given, so that an untouched column reads
    // back the same twips although the control keeps whole pixels.
    std::vector<double> givenTwips_;
};
