#include "kernel/Value.h"

#include <gtest/gtest.h>

#include <limits>

using namespace kernel;

TEST(Value, NumbersAreReadWholeOrNotAtAll)
{
    const struct {
        const char* text;
        bool ok;
        double number;
    } cases[] = {{"12", true, 12},   {"-.5", true, -0.5}, {"+3", true, 3},     {"1e3", true, 1000}, {"", false, 0},
                 {"-", false, 0},    {"+-3", false, 0},   {"3.9kg", false, 0}, {" 3", false, 0},    {"nan", false, 0},
                 {"-inf", false, 0}, {"1e999", false, 0}, {"1,5", false, 0}};
    for (const auto& c : cases) {
        double number = 77;
        EXPECT_EQ(parseDouble(c.text, number), c.ok) << c.text;
        EXPECT_EQ(number, c.ok ? c.number : 77) << c.text;
    }
}

TEST(Value, ConversionsFollowTheScriptLanguage)
{
    const struct {
        Value value;
        bool ok;
        int number;
    } cases[] = {{Value(7.9), true, 7},
                 {Value(-7.9), true, -7},
                 {Value(std::string("on")), true, 1},
                 {Value(std::string("false")), true, 0},
                 {Value(std::string("On")), false, 0},
                 {Value(std::string("2.5")), true, 2},
                 {Value(Vector3{3, 4, 0}), true, 5},
                 {Value(IntArray{1}), false, 0},
                 {Value(), false, 0},
                 {Value(3e9), false, 0},
                 {Value(std::numeric_limits<double>::quiet_NaN()), false, 0}};
    for (const auto& c : cases) {
        int number = 77;
        EXPECT_EQ(toInt(c.value, number), c.ok) << toText(c.value);
        EXPECT_EQ(number, c.ok ? c.number : 77) << toText(c.value);
    }
    bool on = false;
    EXPECT_TRUE(toBool(Value(0.5), on));
    EXPECT_TRUE(on);
}
