#include <gtest/gtest.h>

#include "core/vocabulary.h"

TEST(Vocabulary, EveryOfferedChoiceExceptF6RoundTrips) {
    std::vector<std::string> choices = StopKeyChoices();
    std::vector<std::string> expected = {"ESCAPE", "F1", "F2", "F3", "F4", "F5", "F6", "F7", "F8", "F9"};
    ASSERT_EQ(choices, expected);
    for (const std::string& name : choices) {
        std::string back = StopKeyName(StopKeyCodeOf(name));
        EXPECT_EQ(back, name == "F6" ? "" : name) << name;
    }
}
