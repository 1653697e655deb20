#include "app/RateMeter.h"

#include <gtest/gtest.h>

namespace {

/// Frames every so many milliseconds.
void play(app::RateMeter& meter, double& clock, double every, int frames)
{
    for (int i = 0; i < frames; ++i) {
        clock += every;
        meter.addFrame(clock);
    }
}

}  // namespace

TEST(RateMeter, TellsTheRateOfTheLastSecond)
{
    app::RateMeter meter;
    double clock = 0;
    EXPECT_EQ(meter.rate(), 0);
    play(meter, clock, 1000.0 / 24, 3);
    EXPECT_EQ(meter.rate(), 0) << "too short to tell";
    play(meter, clock, 1000.0 / 24, 50);
    EXPECT_NEAR(meter.rate(), 24, 1e-6);
    play(meter, clock, 100, 5);
    EXPECT_NEAR(meter.rate(), 17, 0.5) << "half of it slow";
    play(meter, clock, 100, 10);
    EXPECT_NEAR(meter.rate(), 10, 1e-6) << "what was before is forgotten";
    play(meter, clock, 4000, 1);
    EXPECT_NEAR(meter.rate(), 0.25, 1e-6);
    meter.clear();
    EXPECT_EQ(meter.rate(), 0);
}
