#include "playback/run_input.h"

#include <algorithm>
#include <utility>

#include "core/app.h"
#include "platform/win_constants.h"

namespace {

// Each button's press and release flags.
constexpr std::pair<std::uint32_t, std::uint32_t> kButtons[] = {
    {win::kMouseLeftDown, win::kMouseLeftUp},
    {win::kMouseRightDown, win::kMouseRightUp},
};

// A release forgets the input, also when it comes with its press in one
// event (a click); a press remembers it once, however often it repeats.
void Track(App& app, HeldInput input, bool pressed, bool released) {
    std::vector<HeldInput>& held = app.heldByRun;
    auto found = std::find(held.begin(), held.end(), input);
    if (released) {
        if (found != held.end()) held.erase(found);
    } else if (pressed && found == held.end()) {
        held.push_back(input);
    }
}

}  // namespace

void SendKey(App& app, std::uint8_t virtualKey, std::uint32_t flags) {
    app.os.input.KeybdEvent(virtualKey, 0, flags);
    bool up = (flags & win::kKeyEventKeyUp) != 0;
    Track(app, {false, virtualKey}, !up, up);
}

void SendMouse(App& app, std::uint32_t flags, int dx, int dy) {
    app.os.input.MouseEvent(flags, dx, dy);
    for (auto [down, up] : kButtons) Track(app, {true, up}, (flags & down) != 0, (flags & up) != 0);
}

void ReleaseHeldInput(App& app) {
    // Each release takes its input off the list.
    while (!app.heldByRun.empty()) {
        HeldInput last = app.heldByRun.back();
        if (last.mouseButton) {
            SendMouse(app, last.release, 0, 0);
        } else {
            SendKey(app, static_cast<std::uint8_t>(last.release), win::kKeyEventKeyUp);
        }
    }
}
