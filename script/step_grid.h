#pragma once
// The step grid `lstMain`: the steps of the current script in the program's
// own memory, the only store of the script. The behaviour reads and writes
// it; the window only shows it and reports what the user did to it. Rows are
// numbered from 1; columns 0 "#" to 7 "Repeat".
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "core/vocabulary.h"

// Colours as 0x00BBGGRR values; kButtonTextColour stands for the system colour.
inline constexpr std::uint32_t kPlayedRowColour = 16711680;  // blue
inline constexpr std::uint32_t kButtonTextColour = 0x80000012;

struct StepRow {
    std::array<std::string, kColumnCount> cells;
    bool checked = false;
    std::string mark;  // "" or "NEW"
    bool selected = false;
    std::uint32_t colour = kButtonTextColour;
};

struct GridColumn {
    std::string header;
    double widthTwips = 0;
    bool centred = false;
};

// What the window showing the grid is told after each change.
class StepGridObserver {
public:
    virtual ~StepGridObserver() = default;
    // Rows were inserted or removed.
    virtual void RowCountChanged() = 0;
    // A row's cells, check mark or colour changed.
    virtual void RowChanged(int row) = 0;
    virtual void SelectionChanged(int row) = 0;
    virtual void ColumnAdded(int column) = 0;
};

class StepGrid {
public:
    // One observer at a time; nullptr for none.
    void SetObserver(StepGridObserver* observer) { observer_ = observer; }

    int RowCount() const { return static_cast<int>(rows_.size()); }
    // Inserts an empty, unchecked, unmarked row so that it becomes row `row`
    // (RowCount() + 1 appends). Rows that do not exist raise Subscript out of range.
    void InsertRow(int row);
    void RemoveRow(int row);
    void Clear();
    // Makes room for `rows` rows in all, so that appending them moves nothing.
    void Reserve(int rows) { rows_.reserve(static_cast<std::size_t>(rows)); }
    const StepRow& Row(int row) const { return rows_[Index(row)]; }
    const std::vector<StepRow>& Rows() const { return rows_; }
    const std::string& Cell(int row, int column) const;
    void SetCell(int row, int column, std::string text);
    bool Checked(int row) const { return Row(row).checked; }
    void SetChecked(int row, bool checked);
    // The row's mark: "" or "NEW".
    const std::string& Mark(int row) const { return Row(row).mark; }
    void SetMark(int row, const std::string& mark);
    bool Selected(int row) const { return Row(row).selected; }
    void SetSelected(int row, bool selected);
    std::uint32_t RowColour(int row) const { return Row(row).colour; }
    void SetRowColour(int row, std::uint32_t colour);

    // Column widths in twips, as the header shows them.
    void AddColumn(const std::string& header, double widthTwips, bool centred);
    int ColumnCount() const { return static_cast<int>(columns_.size()); }
    const GridColumn& Column(int column) const;
    const std::vector<GridColumn>& Columns() const { return columns_; }
    double ColumnWidth(int column) const { return Column(column).widthTwips; }
    // The user dragged a column's edge; the window already shows it.
    void SetColumnWidth(int column, double widthTwips);

private:
    std::size_t Index(int row) const;
    void RowChanged(int row);

    std::vector<StepRow> rows_;
    std::vector<GridColumn> columns_;
    StepGridObserver* observer_ = nullptr;
};
