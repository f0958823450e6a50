#include "platform/date_pattern.h"

#include <gtest/gtest.h>

namespace {

struct DateCase {
    const char* text;
    const char* pattern;
    std::optional<Date> expected;
};

TEST(DatePatternTest, ReadsTheShortDateForms) {
    const DateCase cases[] = {
        {"11/21/2024", "M/d/yyyy", Date{2024, 11, 21}},
        {"1/2/2024", "M/d/yyyy", Date{2024, 1, 2}},
        {"01/02/2024", "M/d/yyyy", Date{2024, 1, 2}},
        {"21.11.2024", "dd.MM.yyyy", Date{2024, 11, 21}},
        {"2024-11-21", "yyyy-MM-dd", Date{2024, 11, 21}},
        {"21/11/24", "dd/MM/yy", Date{2024, 11, 21}},
        {"21/11/29", "dd/MM/yy", Date{2029, 11, 21}},
        {"21/11/30", "dd/MM/yy", Date{1930, 11, 21}},
        {"21/11/99", "dd/MM/yy", Date{1999, 11, 21}},
        {"  3/4/2025 ", "M/d/yyyy", Date{2025, 3, 4}},
        {"2024. 11. 21.", "yyyy. MM. dd.", Date{2024, 11, 21}},
        {"21 de 11 de 2024", "d' de 'MM' de 'yyyy", Date{2024, 11, 21}},
        {"Thu 21/11/2024", "ddd dd/MM/yyyy", Date{2024, 11, 21}},
        {"A.D. 21/11/2024", "gg dd/MM/yyyy", Date{2024, 11, 21}},
        {"2/29/2024", "M/d/yyyy", Date{2024, 2, 29}},
    };
    for (const DateCase& c : cases) EXPECT_EQ(ParseDateWithPattern(c.text, c.pattern), c.expected) << c.text;
}

TEST(DatePatternTest, RefusesTextsThatNameNoDayOrDoNotFit) {
    const char* pattern = "M/d/yyyy";
    for (const char* text : {"", "abc", "13/1/2024", "0/1/2024", "2/30/2024", "2/29/2023", "4/31/2024",
                             "1/1/2024x", "1-1-2024", "1/1", "123/1/2024", "/1/2024", "1/0/2024"})
        EXPECT_EQ(ParseDateWithPattern(text, pattern), std::nullopt) << text;
    EXPECT_EQ(ParseDateWithPattern("21 Nov 2024", "dd MMM yyyy"), std::nullopt) << "month names";
    EXPECT_EQ(ParseDateWithPattern("2/29/1900", pattern), std::nullopt) << "1900 was no leap year";
    EXPECT_EQ(ParseDateWithPattern("2/29/2000", pattern), (Date{2000, 2, 29}));
}

}  // namespace
