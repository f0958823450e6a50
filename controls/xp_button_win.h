#pragma once
// The window of xpButton: a push button (BS_PUSHBUTTON) that the program
// draws in the system's visual style (the theme's push-button face where a
// theme is on, the classic frame otherwise) with a hot look the classic
// button lacks. It reports a click to its parent as the system's button
// does, WM_COMMAND with its id and BN_CLICKED, from the mouse, Space or
// Enter; Tab reaches it.
//
//   XpButtonWin button;
//   button.Create(parent, id, "OK");   // then MoveWindow(button.Handle(), ...), WM_SETFONT
//   EnableWindow(button.Handle(), FALSE);
#include <optional>
#include <string>

#include "controls/drawn_button_win.h"
#include "controls/xp_button.h"

class XpButtonWin : public DrawnButtonWin {
public:
    bool Create(HWND parent, int id, const std::string& caption);

protected:
    bool OnMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) override;
    void Paint(HDC dc, const RECT& client) override;

private:
    void OnMouseMove(POINT at);
    void OnPress(POINT at);
    void OnRelease(POINT at);
    bool OnKey(WPARAM key, LPARAM flags, bool down);
    LRESULT DialogCode(const MSG* message) const;
    LRESULT State() const;
    void Notify() const;
    void Sync();
    // A drawn face: where caption and focus rectangle go, and the caption's ink.
    struct Face {
        RECT content;
        COLORREF ink;
    };
    std::optional<Face> DrawThemedFace(HDC dc, const RECT& area) const;
    Face DrawClassicFace(HDC dc, RECT area, int dpi) const;

    XpButton button_;
    PushLook paintedLook_ = PushLook::Normal;
    bool paintedFocus_ = false;
    bool trackingLeave_ = false;
};
