#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "fakes/test_app.h"
#include "playback/window_command.h"

namespace {

constexpr WindowHandle kEditor = 7;
constexpr WindowHandle kCalculator = 8;
constexpr WindowHandle kFocused = 9;
constexpr WindowHandle kNotes = 10;

class WindowCommands : public ::testing::Test {
protected:
    WindowCommands() {
        t.windows.titles = {{kEditor, "Untitled - Editor"}, {kCalculator, "Calculator"}, {kFocused, "Mail"},
                            {kNotes, "Notes"}};
        t.windows.rects[kCalculator] = {100, 50, 400, 350};
        t.windows.rects[kFocused] = {0, 0, 640, 480};
        t.windows.foreground = kFocused;
    }
    TestApp t;
};

TEST_F(WindowCommands, RunsEachCommandOnTheTitledWindow) {
    const std::tuple<std::string, int, int, std::vector<std::string>> cases[] = {
        {"%winmin Untitled - Editor", -1, -1, {"show 7 6"}},
        {"%winmax Untitled - Editor", -1, -1, {"show 7 3"}},
        {"%winrest Untitled - Editor", -1, -1, {"show 7 9"}},
        {"%winfoc Calculator", -1, -1, {"foreground 8"}},
        {"%winclose %ACTIVE", -1, -1, {"post 9 16 0 0"}},
        {"%winmin %Active", -1, -1, {"show 9 6"}},
        {"%winmov Calculator; 300,200", 10, 20, {"setpos 8 1 10,20 300x200 0"}},
        {"%winmov Calculator; 300,200", -1, -1, {"setpos 8 1 100,50 300x200 0"}},
        {"%winmov Calculator;  300 , 200 ", 10, -1, {"setpos 8 1 10,50 300x200 0"}},
        {"%winmov Calculator", 10, 20, {"setpos 8 1 10,20 300x300 0"}},
        {"%winmov Calculator; ,150", -1, 20, {"setpos 8 1 100,20 300x150 0"}},
        {"%winmov Calculator; 250", -1, -1, {"setpos 8 1 100,50 250x300 0"}},
        {"%winmov Calculator; -1,-1", 5, 5, {"setpos 8 1 5,5 300x300 0"}},
        {"%winmov %active; 320,240", 0, 0, {"setpos 9 1 0,0 320x240 0"}},
        // The title is not trimmed: "Calculator " is another window.
        {"%winmov Calculator ; 300,200", 10, 20, {}},
        {"%winmin", -1, -1, {}},
        {"%winmin Nowhere", -1, -1, {}},
        {"%WINMIN Calculator", -1, -1, {}},
        {"%winfoo Calculator", -1, -1, {}},
        {"%winmin  Calculator", -1, -1, {}},
        // Every occurrence of the command leaves the title.
        {"%winmin No%winmin tes", -1, -1, {"show 10 6"}},
    };
    for (const auto& [text, x, y, calls] : cases) {
        t.windows.calls.clear();
        t.windows.foreground = kFocused;
        WinCommand(t.app, text, x, y);
        EXPECT_EQ(t.windows.calls, calls) << text;
    }
}

}  // namespace
