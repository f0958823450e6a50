#pragma once
// The window of the check box Check: a three-state button (BS_3STATE) whose
// glyph and caption the program draws. Outside the program it is a standard
// three-state check box: BM_GETCHECK answers its value (0, 1, 2), its text is
// its caption, Tab reaches it and Space clicks it. The box keeps its value
// by its own rules (a click clears a greyed box, where the system's automatic
// box would cycle on), so its style is the manual BS_3STATE.
//
//   CheckBoxWin box;
//   box.Create(parent, id, "Caption");         // then MoveWindow(box.Handle(), ...), WM_SETFONT
//   box.SetValue(kGreyed); box.Value();
//   EnableWindow(box.Handle(), FALSE);         // the disabled glyphs
//   box.Events().click = [&] { ... box.Value() ... };
#include <string>

#include "controls/check.h"
#include "controls/drawn_button_win.h"

class CheckBoxWin : public DrawnButtonWin {
public:
    bool Create(HWND parent, int id, const std::string& caption);

    int Value() const { return check_.Value(); }
    void SetValue(int value);
    CheckEvents& Events() { return check_.events; }

protected:
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void Paint(HDC dc, const RECT& client) override;

private:
    void OnPress(MouseButton button, WPARAM keys, LPARAM lParam);
    void OnRelease(MouseButton button);
    void OnSpace(LPARAM flags, bool down);
    LRESULT State() const;
    // Shows what the box now shows and runs the leave watch while it watches.
    void Sync();
    void DrawCaption(HDC dc, RECT area) const;

    Check check_;
    Glyph painted_;
    bool watchRunning_ = false;
};
