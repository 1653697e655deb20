#include "kernel/Value.h"

#include <gtest/gtest.h>

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
