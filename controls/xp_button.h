#pragma once
// xpButton: the push button the program draws itself. This is what it
// decides (which look shows, when a press becomes a click); its window
// (xp_button_win.h) turns messages into these calls and draws the look.
enum class PushLook { Normal, Hot, Pushed, Disabled };

class XpButton {
public:
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);
    void SetFocused(bool focused);
    PushLook Look() const;
    // The focus rectangle and the default frame show on an enabled button
    // that has the focus.
    bool ShowsFocus() const { return enabled_ && focused_; }
    // The left button is down on the button: the window holds the mouse.
    bool Held() const { return held_; }

    void PointerOver(bool over);
    void Press();
    // True when the release is a click: over the button that was pressed.
    bool Release();
    void SpaceDown();
    bool SpaceUp();
    // Enter clicks at once, as on the default button of a dialog.
    bool Enter() const { return enabled_; }
    // The focus or the mouse capture went elsewhere during a push.
    void Cancel();

private:
    bool enabled_ = true;
    bool focused_ = false;
    bool over_ = false;
    bool held_ = false;
    bool spaceHeld_ = false;
};
