#pragma once
// txtCell and cmbDrop on screen: a small window laid exactly over the cell
// under edit, holding the text box or the drop-down list. What the user does
// in them goes to the handlers; what a value means is the behaviour's
// (editing/cell_editing.h).
#include <functional>

#include "core/cell_editor_view.h"
#include "platform/base_window_win.h"

class CellEditorsWin : public BaseWindow<CellEditorsWin>, public CellEditorView {
public:
    // Creates the hidden editors over `list`, as children of `parent`.
    bool Create(HWND parent, HWND list);
    // cmbDrop, which the main window fills with the click actions.
    HWND Combo() const { return combo_; }
    void SetFont(HFONT font);

    void Open(CellEditor editor, int row, int column, const std::string& text) override;
    void Hide(CellEditor editor) override;
    bool Visible(CellEditor editor) const override;
    std::string Text(CellEditor editor) const override;
    void SetText(const std::string& text, bool selectAll) override;

    // A key pressed in an editor; true swallows it.
    std::function<bool(CellEditor, int keyCode)> onKey;
    // txtCell's text changed; cmbDrop's entry was chosen.
    std::function<void(CellEditor)> onChange;
    std::function<void(CellEditor)> onFocusLost;

    LRESULT HandleMessage(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam);

private:
    static LRESULT CALLBACK EditorProc(HWND editor, UINT message, WPARAM wParam, LPARAM lParam);
    HWND Window(CellEditor editor) const { return editor == CellEditor::Text ? edit_ : combo_; }
    void OnCommand(WPARAM wParam);

    HWND list_ = nullptr;
    HWND edit_ = nullptr;   // txtCell
    HWND combo_ = nullptr;  // cmbDrop
    WNDPROC editProc_ = nullptr;
    WNDPROC comboProc_ = nullptr;
    // Set while the program hides an editor itself: that loss of focus is no news.
    bool hiding_ = false;
};
