#include <gtest/gtest.h>

#include "core/basic_text.h"
#include "core/runtime_error.h"

TEST(BasicText, ValReadsTheLeadingNumber) {
    const std::pair<const char*, double> cases[] = {
        {"12abc", 12}, {"abc", 0}, {"", 0}, {"  -3.5x", -3.5}, {"1 2 3", 123}, {".5", 0.5},
        {"007", 7},    {"1e3", 1000}, {"1e", 1}, {"-", 0}, {"+4", 4}, {"9..1", 9}};
    for (const auto& [text, value] : cases) EXPECT_DOUBLE_EQ(Val(text), value) << text;
}

TEST(BasicText, IsNumericNeedsTheWholeTrimmedText) {
    for (const char* yes : {"1", " 12 ", "-1", ".5", "1.", "1e5", "+3"}) EXPECT_TRUE(IsNumeric(yes)) << yes;
    for (const char* no : {"", " ", "12abc", "abc", ".", "-", "1 2", "1,5", "rnd(1,2,3)"})
        EXPECT_FALSE(IsNumeric(no)) << no;
}

TEST(BasicText, ToBooleanAcceptsWordsAndNumbersOnly) {
    for (const char* yes : {"True", "TRUE", "1", "-1"}) EXPECT_TRUE(ToBoolean(yes)) << yes;
    for (const char* no : {"false", "0"}) EXPECT_FALSE(ToBoolean(no)) << no;
    for (const char* bad : {"yes", "", "T", "Truex"}) EXPECT_THROW(ToBoolean(bad), RuntimeError) << bad;
}

TEST(BasicText, IntegerConversionsRoundHalfToEvenOrFloor) {
    EXPECT_EQ((std::vector<int>{CInt(2.5), CInt(3.5), CInt(-2.5), CInt(32767.4)}), (std::vector<int>{2, 4, -2, 32767}));
    EXPECT_THROW(CInt(32768), RuntimeError);
    EXPECT_THROW(CLng(3e9), RuntimeError);
    EXPECT_EQ(std::pair(IntPart(2.9), IntPart(-2.1)), std::pair(2.0, -3.0));
    EXPECT_THROW(TextToLong("12abc"), RuntimeError);
    EXPECT_EQ(TextToLong(" 12 "), 12);
}

TEST(BasicText, NumbersPrintAsBasicDoes) {
    EXPECT_EQ(
        (std::vector<std::string>{NumberText(12), NumberText(-1), NumberText(1.5), NumberText(0), FixedText(1.234, 2)}),
        (std::vector<std::string>{"12", "-1", "1.5", "0", "1.23"}));
}

TEST(BasicText, SplitKeepsEmptyFieldsAndJoinRestores) {
    auto parts = Split("a||||b||", "||");
    EXPECT_EQ(parts, (std::vector<std::string>{"a", "", "b", ""}));
    EXPECT_EQ(Join(parts, "||"), "a||||b||");
    EXPECT_EQ(ReplaceAll("True|||1||True|||x", "True|||", ""), "1||x");
    EXPECT_EQ(Split("abc", "").size(), 1u);
}
