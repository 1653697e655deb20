#include "settings/Rounding.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(Rounding, TheThreeWaysDifferOnlyWhereTheyShould)
{
    const struct {
        double value;
        int cut, up, away;
    } cases[] = {
        {0.0, 0, 0, 0},     {0.5, 0, 1, 1},    {-0.5, 0, 0, -1},      {1.5, 1, 2, 2},
        {-1.5, -1, -1, -2}, {2.4999, 2, 2, 2}, {-2.5001, -2, -3, -3}, {0.49999999999999994, 0, 0, 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(truncated(c.value), c.cut) << c.value;
        EXPECT_EQ(roundedHalfUp(c.value), c.up) << c.value;
        EXPECT_EQ(roundedHalfAwayFromZero(c.value), c.away) << c.value;
    }
}

TEST(Rounding, WhatDoesNotFitStopsAtTheEdgeAndWhatIsNoNumberIsZero)
{
    using Int = std::numeric_limits<int>;
    using Double = std::numeric_limits<double>;
    const struct {
        double value;
        int whole;
    } cases[] = {
        {Double::infinity(), Int::max()},
        {-Double::infinity(), Int::min()},
        {1e300, Int::max()},
        {-1e300, Int::min()},
        {2147483647.5, Int::max()},
        {-2147483648.5, Int::min()},
        {Double::quiet_NaN(), 0},
    };
    for (const auto& c : cases) {
        for (int (*const rounding)(double) : {truncated, roundedHalfUp, roundedHalfAwayFromZero}) {
            EXPECT_EQ(rounding(c.value), c.whole) << c.value;
        }
    }
}

}  // namespace
