#include "controls/check.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

namespace {

// A box that logs its events and takes its input as words: "press-left",
// "release-right", "over", "tick-in", "tick-out", "space-down", "space-up",
// "cancel", "disable", "enable".
class CheckRig {
public:
    explicit CheckRig(int value) {
        check.SetValue(value);
        check.events.mouseDown = [this](const MouseEvent& mouse) {
            std::ostringstream line;
            line << "down " << kButtonNames[static_cast<int>(mouse.button)] << " " << mouse.shift << " " << mouse.x
                 << "," << mouse.y;
            log.push_back(line.str());
        };
        check.events.click = [this] { log.push_back("click"); };
    }

    void Run(const std::vector<std::string>& words) {
        for (const std::string& word : words) Do(word);
    }

    Check check;
    std::vector<std::string> log;

private:
    static constexpr const char* kButtonNames[] = {"left", "right", "middle"};

    static MouseButton ButtonNamed(const std::string& name) {
        for (int button = 0; button < 3; ++button)
            if (name == kButtonNames[button]) return static_cast<MouseButton>(button);
        ADD_FAILURE() << "no button " << name;
        return MouseButton::Left;
    }

    void Do(const std::string& word) {
        if (word.rfind("press-", 0) == 0) return check.Press({ButtonNamed(word.substr(6)), kShiftDown, 3, 4});
        if (word.rfind("release-", 0) == 0) return check.Release(ButtonNamed(word.substr(8)));
        if (word == "over") return check.PointerOver();
        if (word == "tick-in") return check.LeaveTick(true);
        if (word == "tick-out") return check.LeaveTick(false);
        if (word == "space-down") return check.SpaceDown();
        if (word == "space-up") return check.SpaceUp();
        if (word == "cancel") return check.Cancel();
        if (word == "disable" || word == "enable") return check.SetEnabled(word == "enable");
        ADD_FAILURE() << "no action " << word;
    }
};

using Look = CheckLook;

TEST(Check, ANewBoxIsEmptyIdleAndUnwatched) {
    Check check;
    EXPECT_EQ(check.Value(), kNoValue);
    EXPECT_TRUE(check.Enabled());
    EXPECT_EQ(check.Shown(), (Glyph{Look::Idle, kNoValue}));
    EXPECT_FALSE(check.Watching());
}

TEST(Check, SettingTheValueClampsItAndShowsItsRestingGlyph) {
    const std::tuple<int, int> cases[] = {{-5, 0}, {-1, 0}, {0, 0}, {1, 1}, {2, 2}, {3, 2}};
    for (bool enabled : {true, false}) {
        for (const auto& [set, stored] : cases) {
            Check check;
            check.SetEnabled(enabled);
            check.SetValue(set);
            EXPECT_EQ(check.Value(), stored) << set;
            EXPECT_EQ(check.Shown(), (Glyph{enabled ? Look::Idle : Look::Disabled, stored})) << set;
        }
    }
}

TEST(Check, MouseAndKeyboardChangeValueGlyphAndEventsAsTheRulesSay) {
    struct Case {
        const char* name;
        int value;
        std::vector<std::string> actions;
        int valueAfter;
        Glyph shown;
        std::vector<std::string> events;
        bool watching;
    };
    const Case cases[] = {
        {"a click checks an empty box", 0, {"press-left", "release-left"}, 1, {Look::MouseOver, 1},
         {"down left 1 3,4", "click"}, true},
        {"a click clears a checked box", 1, {"press-left", "release-left"}, 0, {Look::MouseOver, 0},
         {"down left 1 3,4", "click"}, true},
        {"a click clears a greyed box, never checks it", 2, {"press-left", "release-left"}, 0, {Look::MouseOver, 0},
         {"down left 1 3,4", "click"}, true},
        {"the middle button clicks as the left does", 0, {"press-middle", "release-middle"}, 1,
         {Look::MouseOver, 1}, {"down middle 1 3,4", "click"}, true},
        {"held down, the box shows the pushed glyph of its old value", 2, {"press-left"}, 0, {Look::Pushed, 2},
         {"down left 1 3,4"}, true},
        {"moving while held keeps the pushed glyph", 0, {"press-left", "over"}, 1, {Look::Pushed, 0},
         {"down left 1 3,4"}, true},
        {"a right press raises MouseDown and changes nothing", 1, {"press-right", "release-right"}, 1,
         {Look::Idle, 1}, {"down right 1 3,4"}, false},
        {"a release without a press on the box is no click", 0, {"release-left"}, 0, {Look::Idle, 0}, {}, false},
        {"a disabled box ignores presses, hover and keys", 1,
         {"disable", "press-left", "release-left", "press-right", "over", "space-down", "space-up"}, 1,
         {Look::Disabled, 1}, {}, false},
        {"enabled again, it rests idle", 2, {"disable", "enable"}, 2, {Look::Idle, 2}, {}, false},
        {"hover shows the mouse-over glyph and starts the watch", 1, {"over", "tick-in"}, 1,
         {Look::MouseOver, 1}, {}, true},
        {"the watch idles the box once the pointer left, and stops", 1, {"over", "tick-out"}, 1, {Look::Idle, 1}, {},
         false},
        {"dragged off and released, the box idles on the next tick", 0,
         {"press-left", "tick-out", "release-left", "tick-out"}, 1, {Look::Idle, 1}, {"down left 1 3,4", "click"},
         false},
        {"a press cancelled by a lost capture keeps its value but is no click", 0,
         {"press-left", "cancel", "release-left"}, 1, {Look::Idle, 1}, {"down left 1 3,4"}, true},
        {"Space pushes the box without changing it", 0, {"space-down", "over"}, 0, {Look::Pushed, 0}, {}, false},
        {"Space released clicks the box", 2, {"space-down", "space-up"}, 0, {Look::Idle, 0}, {"click"}, false},
        {"Space released after the focus left clicks nothing", 0, {"space-down", "cancel", "space-up"}, 0,
         {Look::Idle, 0}, {}, false},
        {"a second Space up clicks nothing", 0, {"space-down", "space-up", "space-up"}, 1, {Look::Idle, 1},
         {"click"}, false},
    };
    for (const Case& c : cases) {
        CheckRig rig(c.value);
        rig.Run(c.actions);
        EXPECT_EQ(rig.check.Value(), c.valueAfter) << c.name;
        EXPECT_EQ(rig.check.Shown(), c.shown) << c.name;
        EXPECT_EQ(rig.log, c.events) << c.name;
        EXPECT_EQ(rig.check.Watching(), c.watching) << c.name;
    }
}

// The container may change the box from inside its events; what it sets wins.
TEST(Check, ValueSetInTheClickEventStays) {
    CheckRig rig(0);
    rig.check.events.click = [&] { rig.check.SetValue(kGreyed); };
    rig.Run({"press-left", "release-left"});
    EXPECT_EQ(rig.check.Value(), kGreyed);
    EXPECT_EQ(rig.check.Shown(), (Glyph{Look::Idle, kGreyed}));
}

}  // namespace
