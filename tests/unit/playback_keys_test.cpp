#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "core/app.h"
#include "playback/key_letters.h"
#include "playback/key_sender.h"
#include "playback_rig.h"

namespace {

constexpr std::uint32_t kShift = 16;

// One ordinary key stroke, with Shift around it when asked.
std::vector<InputEvent> Stroke(std::uint32_t key, bool shifted = false) {
    if (shifted) return {Down(kShift), Down(key), Up(key), Up(kShift)};
    return {Down(key), Up(key)};
}

std::vector<InputEvent> Joined(std::initializer_list<std::vector<InputEvent>> parts) {
    std::vector<InputEvent> all;
    for (const auto& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

class KeyText : public PlaybackRig {};

TEST_F(KeyText, SendsTheExactKeyEventsOfEachText) {
    const std::tuple<std::string, std::vector<InputEvent>, std::string> cases[] = {
        {"Hello", Joined({Stroke('H', true), Stroke('E'), Stroke('L'), Stroke('L'), Stroke('O')}), ""},
        {"%ca$c", {Down(17), Down('A'), Up('A'), Up(17)}, ""},
        {"%r$r", {Down(13), Up(13)}, ""},
        {"%f1", {Down(112), Up(112)}, ""},
        {"%F9", {Down(120), Up(120)}, ""},
        {"%f10", Joined({{Down(112), Up(112)}, Stroke('0')}), ""},
        {"%fx", {Down(111), Up(111)}, ""},
        {"$f2", {Down(113), Up(113)}, ""},
        {"%f", {Down(111), Up(111)}, ""},
        {"$l", {Up(20), Up(20)}, ""},
        {"%l", {Down(20), Up(20)}, ""},
        {"%X", Joined({Stroke('5', true), Stroke('X', true)}), ""},
        {"%%", Joined({Stroke('5', true), Stroke('5', true)}), ""},
        {"$$x", Joined({Stroke('4', true), Stroke('4', true), Stroke('X')}), ""},
        {"%a", {Down(18)}, ""},
        {"a%", Stroke('A'), "%"},
        {"%A$a", {Down(18), Up(18)}, ""},
        {"%s%t$t$s", {Down(16), Down(9), Up(9), Up(16)}, ""},
        {"%w%;%.%,%/%d%b%n%h%u%j%e", {Down(91), Down(38), Down(40), Down(37), Down(39), Down(46), Down(8),
                                      Down(35), Down(36), Down(33), Down(34), Down(27)}, ""},
        {"50%", Joined({Stroke('5'), Stroke('0')}), "%"},
        {"a b", Joined({Stroke('A'), Stroke(' '), Stroke('A' + 1)}), ""},
        {"~q\"?", Joined({Stroke(192, true), Stroke('Q'), Stroke(222, true), Stroke(191, true)}), ""},
    };
    for (const auto& [text, events, pendingAfter] : cases) {
        t.input.events.clear();
        app.pendingPrefix.clear();
        TypeKeyText(app, text);
        EXPECT_EQ(KeyEvents(), events) << text;
        EXPECT_EQ(app.pendingPrefix, pendingAfter) << text;
    }
    for (std::uint8_t scanCode : t.input.scanCodesSeen) EXPECT_EQ(scanCode, 0);
}

// What no key of the layout makes goes as the character itself, without
// Shift; everything else keeps its key events.
TEST_F(KeyText, CharactersWithoutAKeyGoAsUnicode) {
    t.input.keyless = "()%";
    const std::pair<std::string, std::vector<InputEvent>> cases[] = {
        {"\xE9", {Char('\xE9')}},
        {"(a)", {Char('('), Down('A'), Up('A'), Char(')')}},
        {"\x80Z\xFF", Joined({{Char('\x80')}, Stroke('Z', true), {Char('\xFF')}})},
        // A prefix needs no key to press a command; typed as itself it does.
        {"%ca$c", {Down(17), Down('A'), Up('A'), Up(17)}},
        {"%x", {Char('%'), Down('X'), Up('X')}},
        {"$%(", Joined({Stroke('4', true), {Char('%'), Char('(')}})},
    };
    for (const auto& [text, events] : cases) {
        t.input.events.clear();
        app.pendingPrefix.clear();
        TypeKeyText(app, text);
        EXPECT_EQ(t.input.events, events) << text;
    }
}

TEST_F(KeyText, APendingPrefixBeforeAnOrdinaryLetterIsTypedAsPercent) {
    TypeKeyText(app, "x%");
    TypeKeyText(app, "x");
    EXPECT_EQ(KeyEvents(), Joined({Stroke('X'), Stroke('5', true), Stroke('X')}));
    EXPECT_EQ(app.pendingPrefix, "");
}

TEST_F(KeyText, WaitsATenthOfASecondFirstAndSwitchesTheKeyTimersOffWhileTyping) {
    app.settings.showCount = 1;
    t.main.SetTimer(Timer::ShiftNext, false);
    t.main.SetTimer(Timer::Stop, false);
    std::vector<bool> timersOnWhileTyping;
    t.input.onEvent = [&](const InputEvent&) {
        for (Timer timer : {Timer::Hotkey, Timer::ShiftNext, Timer::Stop})
            timersOnWhileTyping.push_back(t.main.TimerEnabled(timer));
    };
    TypeKeyText(app, "ab");
    EXPECT_EQ(t.clock.waitedSeconds, std::vector<double>{0.1});
    EXPECT_EQ(t.main.panels[1], "Remaining until next step: <1 second");
    EXPECT_EQ(timersOnWhileTyping, std::vector<bool>(12, false));
    // All three are on afterwards, whatever they were before.
    for (Timer timer : {Timer::Hotkey, Timer::ShiftNext, Timer::Stop}) EXPECT_TRUE(t.main.TimerEnabled(timer));
}

TEST_F(KeyText, AHundredThousandCharacterTextIsTypedCompletely) {
    std::string text;
    for (int i = 0; i < 100000; ++i) text += static_cast<char>('a' + i % 26);
    text.back() = 'Z';
    TypeKeyText(app, text);
    std::vector<InputEvent> keys = KeyEvents();
    ASSERT_EQ(keys.size(), 2u * 99999 + 4);
    EXPECT_EQ(keys[0], Down('A'));
    EXPECT_EQ(keys[2 * 26], Down('A'));
    EXPECT_EQ(std::vector<InputEvent>(keys.end() - 4, keys.end()), Stroke('Z', true));
}

TEST(KeyLetters, KeyToTextWritesCapturedKeysInTheLanguage) {
    const std::tuple<int, bool, std::string> cases[] = {
        {18, true, "%a"},   {18, false, "$a"},   {40, false, "$."}, {20, true, "%l"}, {20, false, ""},
        {112, true, "%F1"}, {123, true, "%F12"}, {123, false, ""},  {9, true, ""},    {9, false, "\t"},
        {'A', true, ""},    {'A', false, "a"},   {'7', false, "7"}, {96, false, "`"},
    };
    for (const auto& [key, down, text] : cases) EXPECT_EQ(KeyToText(key, down), text) << key << " " << down;
}

}  // namespace
