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

TEST(Time, EveryUnitIsAWholeNumberOfTicks)
{
    for (int i = 1; i < static_cast<int>(TimeUnit::UserDefined); ++i) {
        const double ticks = ticksPerUnit(static_cast<TimeUnit>(i));
        EXPECT_EQ(ticks, std::floor(ticks)) << timeUnitName(static_cast<TimeUnit>(i));
    }
}

TEST(Time, TextMayNameItsUnit)
{
    const struct {
        const char* text;
        bool ok;
        double value;
        TimeUnit unit;
    } cases[] = {{"12", true, 12, TimeUnit::PalFrame},       {"12film", true, 12, TimeUnit::Film},
                 {"-2.5sec", true, -2.5, TimeUnit::Seconds}, {"12frames", false, 0, TimeUnit::Film},
                 {"film", false, 0, TimeUnit::Film},         {"", false, 0, TimeUnit::Film}};
    for (const auto& c : cases) {
        Time time;
        EXPECT_EQ(parseTime(c.text, TimeUnit::PalFrame, time), c.ok) << c.text;
        if (c.ok) {
            EXPECT_EQ(time.value, c.value) << c.text;
            EXPECT_EQ(time.unit, c.unit) << c.text;
        }
    }
}
