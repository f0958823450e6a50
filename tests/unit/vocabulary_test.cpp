#include <gtest/gtest.h>

#include "script/vocabulary.h"

TEST(Vocabulary, StopKeyNamesKeepTheirGaps) {
    struct Case {
        std::int16_t code;
        const char* name;
    } cases[] = {{27, "ESCAPE"}, {112, "F1"}, {116, "F5"}, {117, ""},  {118, "F7"}, {120, "F9"},
                 {121, "F10"},   {122, ""},   {123, ""},   {0, ""},    {26, ""},    {13, ""}, {-1, ""}};
    for (const Case& c : cases) EXPECT_EQ(StopKeyName(c.code), c.name) << c.code;
}

TEST(Vocabulary, StopKeyCodesOfNames) {
    struct Case {
        const char* name;
        std::int16_t code;
    } cases[] = {{"ESCAPE", 27}, {"F1", 112}, {"F9", 120}, {"F10", 121}, {"F6", 0},
                 {"", 0},        {"escape", 0}, {"F11", 0}, {" F1", 0}};
    for (const Case& c : cases) EXPECT_EQ(StopKeyCodeOf(c.name), c.code) << c.name;
}

TEST(Vocabulary, EveryOfferedChoiceExceptF6RoundTrips) {
    std::vector<std::string> choices = StopKeyChoices();
    std::vector<std::string> expected = {"ESCAPE", "F1", "F2", "F3", "F4", "F5", "F6", "F7", "F8", "F9"};
    ASSERT_EQ(choices, expected);
    for (const std::string& name : choices) {
        std::string back = StopKeyName(StopKeyCodeOf(name));
        EXPECT_EQ(back, name == "F6" ? "" : name) << name;
    }
}

TEST(Vocabulary, KeywordListsHaveTheirEntriesInOrder) {
    std::vector<std::string> letters = CommandLetterList();
    ASSERT_EQ(letters.size(), 17u);
    EXPECT_EQ(letters.front(), "a");
    EXPECT_EQ(letters[12], ";");
    EXPECT_EQ(letters[14], ",");
    EXPECT_EQ(letters.back(), "w");
    std::vector<std::string> keys = KeyNameList();
    ASSERT_EQ(keys.size(), 17u);
    EXPECT_EQ(keys[10], "Page Up");
    EXPECT_EQ(keys.back(), "Windows Key");
    std::vector<std::string> commands = {"%winfoc", "%winmin", "%winmax", "%winrest", "%winmov", "%winclose"};
    EXPECT_EQ(WindowCommandList(), commands);
    EXPECT_STREQ(kClickActions.front(), "No Click");
    EXPECT_STREQ(kClickActions[6], "Right DblClick");
}
