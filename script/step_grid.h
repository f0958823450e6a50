#pragma once
// The step grid `lstMain` as the behaviour sees it: the only store of the
// current script. Rows are numbered from 1; columns 0 "#" to 7 "Repeat".
#include <cstdint>
#include <string>

enum Column : int { kColNumber = 0, kColX, kColY, kColButton, kColAdditional, kColMins, kColSecs, kColRepeat };
inline constexpr int kColumnCount = 8;

// Colours as 0x00BBGGRR values; kButtonTextColour stands for the system colour.
inline constexpr std::uint32_t kPlayedRowColour = 16711680;  // blue
inline constexpr std::uint32_t kButtonTextColour = 0x80000012;

class StepGrid {
public:
    virtual ~StepGrid() = default;
    virtual int RowCount() const = 0;
    // Inserts an empty, unchecked, unmarked row so that it becomes row `row`
    // (RowCount() + 1 appends).
    virtual void InsertRow(int row) = 0;
    virtual void RemoveRow(int row) = 0;
    virtual void Clear() = 0;
    virtual std::string Cell(int row, int column) const = 0;
    virtual void SetCell(int row, int column, const std::string& text) = 0;
    virtual bool Checked(int row) const = 0;
    virtual void SetChecked(int row, bool checked) = 0;
    // The row's tag: "" or "NEW".
    virtual std::string Mark(int row) const = 0;
    virtual void SetMark(int row, const std::string& mark) = 0;
    virtual bool Selected(int row) const = 0;
    virtual void SetSelected(int row, bool selected) = 0;
    virtual void SetRowColour(int row, std::uint32_t colour) = 0;
    // Column widths in twips, as the header shows them.
    virtual void AddColumn(const std::string& header, double widthTwips, bool centred) = 0;
    virtual int ColumnCount() const = 0;
    virtual double ColumnWidth(int column) const = 0;
};
