#include "controls/xp_button.h"

void XpButton::SetEnabled(bool enabled) {
    enabled_ = enabled;
    held_ = spaceHeld_ = false;
}

void XpButton::SetFocused(bool focused) {
    focused_ = focused;
    if (!focused) spaceHeld_ = false;
}

// Held down, the button looks pushed only while the pointer is over it, so
// the user sees that letting go elsewhere clicks nothing.
PushLook XpButton::Look() const {
    if (!enabled_) return PushLook::Disabled;
    if (spaceHeld_ || (held_ && over_)) return PushLook::Pushed;
    if (over_ && !held_) return PushLook::Hot;
    return PushLook::Normal;
}

void XpButton::PointerOver(bool over) { over_ = over; }

void XpButton::Press() {
    if (enabled_ && !spaceHeld_) held_ = true;
}

bool XpButton::Release() {
    if (!held_) return false;
    held_ = false;
    return over_;
}

void XpButton::SpaceDown() {
    if (enabled_ && !held_) spaceHeld_ = true;
}

bool XpButton::SpaceUp() {
    if (!spaceHeld_) return false;
    spaceHeld_ = false;
    return true;
}

void XpButton::Cancel() { held_ = spaceHeld_ = false; }
