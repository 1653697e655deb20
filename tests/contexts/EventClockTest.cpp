#include "contexts/EventClock.h"

#include <gtest/gtest.h>

namespace {

using std::chrono::milliseconds;

SampleTime at(int ms)
{
    return SampleTime() + std::chrono::hours(1) + milliseconds(ms);
}

TEST(EventClock, TrustsTheEventThatCameWithTheLeastDelayAndNeverPutsOneTooEarly)
{
    EventClock clock;
    EXPECT_EQ(clock.latest(1), SampleTime::max()) << "nothing noted";
    clock.note(5000, at(40));
    EXPECT_GE(clock.latest(5000), at(40)) << "it may have happened when it came";
    clock.note(5100, at(105));
    clock.note(5200, at(390));
    EXPECT_GE(clock.latest(5200), at(220)) << "a stamp may be a tick old";
    EXPECT_LT(clock.latest(5200), at(225));
}

TEST(EventClock, KnowsNothingByStampsThatAreNone)
{
    EventClock clock;
    for (const unsigned long second : {0ul, 4999ul}) {
        clock.restart();
        clock.note(5000, at(0));
        clock.note(second, at(1));
        clock.note(6000, at(2));
        EXPECT_EQ(clock.latest(6000), SampleTime::max());
    }
    clock.restart();
    clock.note(7000, at(0));
    EXPECT_LT(clock.latest(7000), at(20));
}

}  // namespace
