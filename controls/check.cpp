#include "controls/check.h"

#include <algorithm>

namespace {
// A greyed box is cleared by a click, never checked.
int Toggled(int value) { return value == kNoValue ? kChecked : kNoValue; }
}  // namespace

// Beyond greyed there is no glyph: larger values are greyed, as a standard
// three-state box clamps them.
void Check::SetValue(int value) {
    value_ = std::clamp(value, kNoValue, kGreyed);
    ShowIdle();
}

void Check::SetEnabled(bool enabled) {
    enabled_ = enabled;
    held_ = spaceHeld_ = false;
    ShowIdle();
}

void Check::ShowIdle() { shown_ = {enabled_ ? CheckLook::Idle : CheckLook::Disabled, value_}; }

// The pushed glyph keeps the value the box had when it was pressed; the new
// value shows once the button is released.
void Check::Press(const MouseEvent& mouse) {
    if (!enabled_) return;
    if (events.mouseDown) events.mouseDown(mouse);
    if (mouse.button == MouseButton::Right) return;
    watching_ = held_ = true;
    shown_ = {CheckLook::Pushed, value_};
    value_ = Toggled(value_);
}

// The pointer is over the box when it lets go, unless it was dragged off,
// which the leave watch sees on its next tick.
void Check::Release(MouseButton button) {
    if (!enabled_ || button == MouseButton::Right || !held_) return;
    held_ = false;
    watching_ = true;
    shown_ = {CheckLook::MouseOver, value_};
    if (events.click) events.click();
}

// The watch starts with the hover too, so that a box hovered but never
// clicked also returns to idle.
void Check::PointerOver() {
    if (!enabled_ || held_ || spaceHeld_) return;
    watching_ = true;
    shown_ = {CheckLook::MouseOver, value_};
}

// Once the pointer has left there is nothing more to watch.
void Check::LeaveTick(bool pointerInside) {
    if (!watching_ || pointerInside) return;
    watching_ = false;
    if (!spaceHeld_) ShowIdle();
}

void Check::SpaceDown() {
    if (!enabled_ || held_ || spaceHeld_) return;
    spaceHeld_ = true;
    shown_ = {CheckLook::Pushed, value_};
}

void Check::SpaceUp() {
    if (!spaceHeld_) return;
    spaceHeld_ = false;
    value_ = Toggled(value_);
    ShowIdle();
    if (events.click) events.click();
}

// A key released elsewhere, or a button released after another window took
// the mouse, must not click the box.
void Check::Cancel() {
    if (!held_ && !spaceHeld_) return;
    held_ = spaceHeld_ = false;
    ShowIdle();
}
