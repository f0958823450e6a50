#pragma once
// The in-place editors of the step grid as the behaviour sees them: the text
// box txtCell over the numeric columns and the drop-down list cmbDrop over
// "Button". Each is placed exactly over its cell when opened.
#include <string>

enum class CellEditor { Text, DropDown };

class CellEditorView {
public:
    virtual ~CellEditorView() = default;
    // Places the editor over the cell (rows from 1, columns from 0) with
    // `text`, shows it and gives it the focus; txtCell selects all of its
    // text, cmbDrop shows the entry equal to `text`.
    virtual void Open(CellEditor editor, int row, int column, const std::string& text) = 0;
    // Hiding an editor is no loss of focus the behaviour hears of.
    virtual void Hide(CellEditor editor) = 0;
    virtual bool Visible(CellEditor editor) const = 0;
    virtual std::string Text(CellEditor editor) const = 0;
    // Replaces txtCell's text, all of it selected or the caret at its end.
    virtual void SetText(const std::string& text, bool selectAll) = 0;
};
