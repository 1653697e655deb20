#include "kernel/Time.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace kernel;

TEST(Time, EveryUnitHasItsOwnNameAndPlace)
{
    for (int i = 1; i < static_cast<int>(TimeUnit::UserDefined); ++i) {
        const auto unit = static_cast<TimeUnit>(i);
        EXPECT_EQ(timeUnitFromName(timeUnitName(unit)), unit) << i;
    }
    // the numbers are the host API's; these lie at both ends of the odd stretches
    EXPECT_EQ(timeUnitName(static_cast<TimeUnit>(6)), "film");
    EXPECT_EQ(timeUnitName(static_cast<TimeUnit>(12)), "2fps");
    EXPECT_EQ(timeUnitName(static_cast<TimeUnit>(42)), "6000fps");
    EXPECT_EQ(timeUnitName(static_cast<TimeUnit>(45)), "29.97df");
    EXPECT_EQ(timeUnitName(static_cast<TimeUnit>(50)), "90fps");
    EXPECT_EQ(timeUnitFromName("frames"), TimeUnit::Invalid);
    EXPECT_EQ(timeUnitName(TimeUnit::Invalid), "");
}
