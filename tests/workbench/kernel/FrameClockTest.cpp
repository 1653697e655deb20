#include "kernel/FrameClock.h"

#include <gtest/gtest.h>

#include <vector>

using kernel::FrameClock;

namespace {

using Counts = std::vector<int>;

constexpr double kFrame = 1000.0 / 24;

/// How many frames are due when the clock is looked at; its times in frames, unless a duration says otherwise.
Counts due(const std::vector<double>& times, FrameClock::Late late, double duration = kFrame)
{
    FrameClock clock;
    clock.start();
    Counts counts;
    for (const double time : times)
        counts.push_back(clock.framesDue(time * kFrame, duration, late));
    return counts;
}

}  // namespace

TEST(FrameClock, LateFramesTakeNothingFromTheTimeOfThoseAfter)
{
    const auto late = FrameClock::Late::Drop;
    EXPECT_EQ(due({0, 0.5, 0.9, 1, 1.9, 2}, late), (Counts{0, 0, 0, 1, 0, 1})) << "not before its time";
    EXPECT_EQ(due({1.9, 2, 3.7, 4}, late), (Counts{1, 1, 1, 1}));
    EXPECT_EQ(due({3, 5.5, 6, 25.9, 26}, late), (Counts{3, 2, 1, 19, 1}));
    Counts all(5000, 1);
    std::vector<double> times;
    for (int frame = 1; frame <= 5000; ++frame)
        times.push_back(frame);
    EXPECT_EQ(due(times, late), all) << "rounding does not add up";
}

TEST(FrameClock, AfterALongStallItGoesOnFromThere)
{
    const double longest = FrameClock::kLongestDelay / kFrame;
    EXPECT_EQ(due({1, longest + 1.5}, FrameClock::Late::Drop), (Counts{1, int(longest)}));
    EXPECT_EQ(due({1, 500.3, 500.9, 501.3, 502.3}, FrameClock::Late::Drop), (Counts{1, 1, 0, 1, 1}));
}

TEST(FrameClock, ShowsAllFramesOneByOneWhenNoneMayBeDropped)
{
    const auto late = FrameClock::Late::ShowAll;
    EXPECT_EQ(due({0, 0, 7, 7}, late, 0), (Counts{1, 1, 1, 1})) << "as fast as can be";
    EXPECT_EQ(due({0.5, 1, 2.4, 3, 3.9}, late), (Counts{0, 1, 1, 1, 0})) << "a little late: in time again";
    EXPECT_EQ(due({1, 9.2, 9.9, 10.2, 11.1}, late), (Counts{1, 1, 0, 1, 0})) << "very late: from there";
}

TEST(FrameClock, ANewDurationCountsFromTheFrameShown)
{
    FrameClock clock;
    clock.start();
    EXPECT_EQ(clock.framesDue(10, 10, FrameClock::Late::Drop), 1);
    EXPECT_EQ(clock.nextDue(20), 30);
    EXPECT_EQ(clock.framesDue(29, 20, FrameClock::Late::Drop), 0);
    EXPECT_EQ(clock.framesDue(30, 5, FrameClock::Late::Drop), 4);
    clock.start();
    EXPECT_EQ(clock.nextDue(20), 20);
}
