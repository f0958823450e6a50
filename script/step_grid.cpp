#include "script/step_grid.h"

#include <utility>

#include "core/runtime_error.h"

std::size_t StepGrid::Index(int row) const {
    if (row < 1 || row > RowCount()) RaiseSubscriptOutOfRange();
    return static_cast<std::size_t>(row - 1);
}

void StepGrid::RowChanged(int row) {
    if (observer_) observer_->RowChanged(row);
}

void StepGrid::InsertRow(int row) {
    if (row < 1 || row > RowCount() + 1) RaiseSubscriptOutOfRange();
    rows_.insert(rows_.begin() + (row - 1), StepRow{});
    if (observer_) observer_->RowCountChanged();
}

void StepGrid::RemoveRow(int row) {
    rows_.erase(rows_.begin() + static_cast<std::ptrdiff_t>(Index(row)));
    if (observer_) observer_->RowCountChanged();
}

void StepGrid::Clear() {
    rows_.clear();
    if (observer_) observer_->RowCountChanged();
}

const std::string& StepGrid::Cell(int row, int column) const {
    if (column < 0 || column >= kColumnCount) RaiseSubscriptOutOfRange();
    return Row(row).cells[static_cast<std::size_t>(column)];
}

void StepGrid::SetCell(int row, int column, std::string text) {
    if (column < 0 || column >= kColumnCount) RaiseSubscriptOutOfRange();
    rows_[Index(row)].cells[static_cast<std::size_t>(column)] = std::move(text);
    RowChanged(row);
}

void StepGrid::SetChecked(int row, bool checked) {
    StepRow& step = rows_[Index(row)];
    if (step.checked == checked) return;
    step.checked = checked;
    RowChanged(row);
}

void StepGrid::SetMark(int row, const std::string& mark) { rows_[Index(row)].mark = mark; }

void StepGrid::SetSelected(int row, bool selected) {
    StepRow& step = rows_[Index(row)];
    if (step.selected == selected) return;
    step.selected = selected;
    if (observer_) observer_->SelectionChanged(row);
}

void StepGrid::SetRowColour(int row, std::uint32_t colour) {
    StepRow& step = rows_[Index(row)];
    if (step.colour == colour) return;
    step.colour = colour;
    RowChanged(row);
}

void StepGrid::AddColumn(const std::string& header, double widthTwips, bool centred) {
    columns_.push_back({header, widthTwips, centred});
    if (observer_) observer_->ColumnAdded(ColumnCount() - 1);
}

const GridColumn& StepGrid::Column(int column) const {
    if (column < 0 || column >= ColumnCount()) RaiseSubscriptOutOfRange();
    return columns_[static_cast<std::size_t>(column)];
}

void StepGrid::SetColumnWidth(int column, double widthTwips) {
    Column(column);
    columns_[static_cast<std::size_t>(column)].widthTwips = widthTwips;
}
