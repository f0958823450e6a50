#pragma once
// A standard BUTTON window that the program draws and drives itself.
//
// A real button, so that everything outside reads it as the system's own:
// accessibility tools take its kind from its style (a check box, a push
// button), its caption from WM_GETTEXT and its state from BM_GETCHECK and
// BM_GETSTATE; the dialog manager moves the focus to it with Tab. Not
// BS_OWNERDRAW: an owner-drawn button is a push button to every reader (no
// check state), is drawn by its parent and has no hot look. So the button
// keeps its real style and is subclassed: every message on which the
// system's button would paint itself or change its own state is answered
// here, and the program's drawing is the only one ever seen.
#include <string>

#include "platform/win32.h"

class DrawnButtonWin {
public:
    DrawnButtonWin() = default;
    DrawnButtonWin(const DrawnButtonWin&) = delete;
    DrawnButtonWin& operator=(const DrawnButtonWin&) = delete;
    virtual ~DrawnButtonWin();

    HWND Handle() const { return hwnd_; }

protected:
    // A visible child button with WS_TABSTOP and `style`; its size is the
    // host's to set.
    bool CreateButton(HWND parent, int id, const std::string& caption, DWORD style);

    // The control's own input and state messages; false leaves the message
    // to the system's button.
    virtual bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) = 0;
    // Draws the whole client area into `dc`, which shows it only when done.
    virtual void Paint(HDC dc, const RECT& client) = 0;

    void Redraw() const;
    HFONT Font() const { return font_; }
    std::string Caption() const;
    int Dpi() const;
    bool HasFocus() const { return GetFocus() == hwnd_; }
    // The focus rectangle and the access keys' underlines, which the system
    // hides until the keyboard is used.
    bool FocusCuesShown() const;
    bool AccessKeysShown() const;
    bool PointerInside() const;
    static POINT PointOf(LPARAM lParam);
    // Bit 30 of a key message: the key was down already.
    static bool Repeated(LPARAM flags) { return (flags & (1 << 30)) != 0; }
    bool Inside(POINT point) const;

    // The mouse stays with the control from a press to its release, also
    // outside it; letting go is not a lost capture.
    void HoldMouse() const { SetCapture(hwnd_); }
    void LetGoOfMouse();

    HWND hwnd_ = nullptr;

private:
    static LRESULT CALLBACK SubclassProc(HWND hwnd, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                         DWORD_PTR self);
    LRESULT HandleMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void PaintBuffered(HDC target);

    HFONT font_ = nullptr;  // the host's, as WM_SETFONT gives it
    bool lettingGo_ = false;
};
