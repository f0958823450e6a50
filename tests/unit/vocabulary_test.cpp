#include <gtest/gtest.h>

#include "core/vocabulary.h"

TEST(Vocabulary, EveryOfferedChoiceExceptF6RoundTrips) {
    for (const std::string& name : StopKeyChoices()) {
        std::string back = StopKeyName(StopKeyCodeOf(name));
        EXPECT_EQ(back, name == "F6" ? "" : name) << name;
    }
}
