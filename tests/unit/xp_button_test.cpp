#include "controls/xp_button.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

// Runs the input words on a fresh button and counts the clicks.
int Clicks(XpButton& button, const std::vector<std::string>& words) {
    int clicks = 0;
    for (const std::string& word : words) {
        if (word == "over" || word == "out") button.PointerOver(word == "over");
        else if (word == "press") button.Press();
        else if (word == "release") clicks += button.Release();
        else if (word == "space-down") button.SpaceDown();
        else if (word == "space-up") clicks += button.SpaceUp();
        else if (word == "enter") clicks += button.Enter();
        else if (word == "focus" || word == "blur") button.SetFocused(word == "focus");
        else if (word == "cancel") button.Cancel();
        else if (word == "disable" || word == "enable") button.SetEnabled(word == "enable");
        else ADD_FAILURE() << "no action " << word;
    }
    return clicks;
}

TEST(XpButton, LooksAndClicksFollowMouseAndKeyboard) {
    struct Case {
        const char* name;
        std::vector<std::string> actions;
        PushLook look;
        bool focus;
        int clicks;
    };
    const Case cases[] = {
        {"a new button is normal", {}, PushLook::Normal, false, 0},
        {"the pointer over it makes it hot", {"over"}, PushLook::Hot, false, 0},
        {"and leaving makes it normal again", {"over", "out"}, PushLook::Normal, false, 0},
        {"a press over it pushes it", {"over", "press"}, PushLook::Pushed, false, 0},
        {"its release over it clicks", {"over", "press", "release"}, PushLook::Hot, false, 1},
        {"dragged off while held it looks normal", {"over", "press", "out"}, PushLook::Normal, false, 0},
        {"released off it clicks nothing", {"over", "press", "out", "release"}, PushLook::Normal, false, 0},
        {"dragged back while held it is pushed again", {"over", "press", "out", "over"}, PushLook::Pushed, false, 0},
        {"a release whose press was elsewhere clicks nothing", {"over", "release"}, PushLook::Hot, false, 0},
        {"a lost capture ends the press without a click", {"over", "press", "cancel", "release"}, PushLook::Hot,
         false, 0},
        {"the focus shows", {"focus"}, PushLook::Normal, true, 0},
        {"Space pushes it", {"focus", "space-down"}, PushLook::Pushed, true, 0},
        {"Space released clicks it", {"focus", "space-down", "space-up"}, PushLook::Normal, true, 1},
        {"Space released after the focus left clicks nothing", {"focus", "space-down", "blur", "space-up"},
         PushLook::Normal, false, 0},
        {"Enter clicks it", {"focus", "enter"}, PushLook::Normal, true, 1},
        {"a disabled button ignores everything and shows no focus",
         {"disable", "focus", "over", "press", "release", "space-down", "space-up", "enter"}, PushLook::Disabled,
         false, 0},
        {"disabling ends a push", {"over", "press", "disable", "enable", "release"}, PushLook::Hot, false, 0},
    };
    for (const Case& c : cases) {
        XpButton button;
        EXPECT_EQ(Clicks(button, c.actions), c.clicks) << c.name;
        EXPECT_EQ(button.Look(), c.look) << c.name;
        EXPECT_EQ(button.ShowsFocus(), c.focus) << c.name;
    }
}

}  // namespace
