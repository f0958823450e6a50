#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "fakes/test_app.h"
#include "core/runtime_error.h"
#include "playback/random_value.h"

namespace {

class RandomValues : public ::testing::Test {
protected:
    RandomValues() {
        t.app.drawRandom = [this] {
            ++draws;
            return r;
        };
    }
    TestApp t;
    double r = 0;
    int draws = 0;
};

TEST(IsRnd, NeedsTheOpeningAndTheClosingParenthesis) {
    for (const char* yes : {"rnd(1,2,0)", "RND(1,2,0)", "Rnd(,,)", "rnd()", "rNd(x)"}) EXPECT_TRUE(IsRnd(yes)) << yes;
    for (const char* no : {"", "rnd", "rnd(", "rnd(1,2,0", " rnd(1,2,0)", "rnd(1,2,0) ", "random(1)", "12"})
        EXPECT_FALSE(IsRnd(no)) << no;
}

TEST_F(RandomValues, FirstPlusSpanTimesRFormattedByTheRoundingField) {
    const std::tuple<std::string, double, std::string> cases[] = {
        {"rnd(5,0,0)", 0.99, "5"},
        {"RND(0,10,1)", 0.03, ".3"},
        {"RND(0,10,1)", 0.74, "7.4"},
        {"RND(0,10,1)", 0.3, "3.0"},
        {"RND(100, 50, 0)", 0.5, "125"},
        {"RND(100, 50, 0)", 0.999, "149"},
        {"rnd(1,2,2)", 0.5, "2.00"},
        {"rnd(0,1,2)", 0.125, ".13"},
        {"rnd(0,1,3)", 0, ".000"},
        {"rnd(-1,1,0)", 0.5, "-1"},
        {"rnd(-1,0.5,1)", 0, "-1.0"},
        {"rnd(-0.5,0,1)", 0, "-.5"},
        {"rnd(5,0,00)", 0, "5."},
        {"rnd(0.4,0,00)", 0, "."},
        {"rnd(,,)", 0.7, "0"},
        {"rnd( , 4 , )", 0.5, "2"},
    };
    for (const auto& [text, draw, value] : cases) {
        r = draw;
        EXPECT_EQ(RndEval(t.app, text, 1), value) << text << " r=" << draw;
    }
    EXPECT_EQ(t.main.panels[1], "");
}

TEST_F(RandomValues, ANonExpressionGivesZeroSilentlyAndAWrongFieldCountWithAMessage) {
    EXPECT_EQ(RndEval(t.app, "12", 1), "0");
    EXPECT_EQ(RndEval(t.app, "rnd(1,2", 1), "0");
    EXPECT_EQ(t.main.panels[1], "");
    EXPECT_EQ(draws, 0);
    r = 0.5;
    for (const char* text : {"rnd(1,2)", "RND(1,2,3,4)", "rnd()"}) {
        EXPECT_EQ(RndEval(t.app, text, 4), "0") << text;
        EXPECT_EQ(t.main.panels[1], std::string("Incorrect RND syntax in step #4 [") + text + "].  Zeros assigned.");
    }
}

TEST_F(RandomValues, AnInfiniteValueIsAnOverflowAndTheRoundingFieldIsClampedBeforeItIsAnInteger) {
    r = 0.5;
    for (const char* text : {"rnd(2e2221,,3)", "RND(1e309,0,1)", "rnd(1.5e308,1e308,0)"}) {
        try {
            RndEval(t.app, text, 1);
            ADD_FAILURE() << text;
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.number, errors::kOverflow) << text;
        }
    }
    EXPECT_EQ(RndEval(t.app, "RND(,,7d66)", 1), "." + std::string(100, '0'));
    EXPECT_EQ(RndEval(t.app, "RND(5,0,3000000000)", 1), "5." + std::string(100, '0'));
    EXPECT_EQ(RndEval(t.app, "RND(5,0,-3000000000)", 1), "5.");
}

// Values drawn one after the other, as X and Y of one step are, differ;
// the generator is seeded from the clock once.
TEST(RandomDraw, OneGeneratorSeededFromTheClockDrawsIndependentValues) {
    auto draws = [](std::uint32_t tick) {
        TestApp t;
        t.clock.nowMs = tick;
        std::string first = RndEval(t.app, "rnd(0,1000000,0)", 1);
        return std::pair(first, RndEval(t.app, "rnd(0,1000000,0)", 1));
    };
    auto [x, y] = draws(1234);
    EXPECT_NE(x, y);
    EXPECT_EQ(draws(1234), std::pair(x, y));
    EXPECT_NE(draws(5678).first, x);
}

TEST_F(RandomValues, TheLocaleSeparatorIsWrittenAndReadBack) {
    t.app.decimalSeparator = ',';
    r = 0.25;
    EXPECT_EQ(RndEval(t.app, "rnd(1,2,1)", 1), "1,5");
    EXPECT_DOUBLE_EQ(RndNumber(t.app, "rnd(0,2,1)", 1), 0.5);
}

TEST(RandomDraw, TheStandardGeneratorStaysWithinTheSpan) {
    TestApp t;
    for (int tick = 0; tick < 200; ++tick) {
        t.clock.nowMs = tick * 7;
        double value = RndNumber(t.app, "RND(100,50,2)", 1);
        EXPECT_GE(value, 100);
        EXPECT_LE(value, 150);
    }
}

}  // namespace
