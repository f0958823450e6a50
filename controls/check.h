#pragma once
// Check: the three-state picture check box. This is what it decides (its
// value, which of its twelve glyphs shows, when its events fire and when the
// leave watch tmrMain runs); its window (check_box_win.h) turns messages into
// these calls and draws the glyph it is told.
#include <functional>

enum class MouseButton { Left, Right, Middle };

// The shift state of a mouse event, as bits.
inline constexpr int kShiftDown = 1;
inline constexpr int kCtrlDown = 2;
inline constexpr int kAltDown = 4;

struct MouseEvent {
    MouseButton button = MouseButton::Left;
    int shift = 0;
    int x = 0;  // pixels from the control's top left corner
    int y = 0;
};

// The four looks; with the three values they name the twelve glyphs
// (IdleNoValue ... PushedGreyed, DisabledGrey).
enum class CheckLook { Idle, MouseOver, Pushed, Disabled };

// 0: no value (unchecked), 1: checked, 2: greyed.
inline constexpr int kNoValue = 0;
inline constexpr int kChecked = 1;
inline constexpr int kGreyed = 2;

struct Glyph {
    CheckLook look = CheckLook::Idle;
    int value = kNoValue;
    bool operator==(const Glyph&) const = default;
};

struct CheckEvents {
    std::function<void(const MouseEvent&)> mouseDown;
    std::function<void()> click;
};

class Check {
public:
    CheckEvents events;

    int Value() const { return value_; }
    void SetValue(int value);
    bool Enabled() const { return enabled_; }
    void SetEnabled(bool enabled);
    Glyph Shown() const { return shown_; }
    // tmrMain: the window ticks LeaveTick every 200 ms while this is true.
    bool Watching() const { return watching_; }

    void Press(const MouseEvent& mouse);
    void Release(MouseButton button);
    void PointerOver();
    void LeaveTick(bool pointerInside);

    // The keyboard: Space pushes the box and its release clicks it.
    void SpaceDown();
    void SpaceUp();
    // The focus or the mouse capture went elsewhere during a push.
    void Cancel();

private:
    void ShowIdle();

    int value_ = kNoValue;
    bool enabled_ = true;
    Glyph shown_;
    bool watching_ = false;
    bool held_ = false;  // a button other than the right one is down on the box
    bool spaceHeld_ = false;
};
