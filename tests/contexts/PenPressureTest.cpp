#include "contexts/PenPressure.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

TEST(PenPressure, SteadiesLightTouchesAndBendsTheUpperHalf)
{
    const struct {
        float pressed, counts;
    } cases[] = {{0.01f, 0.f},    {0.05f, 0.f},     {0.1f, 0.15f}, {0.3f, 0.3f},  {0.5f, 0.5f}, {0.7f, 0.82f},
                 {0.75f, 0.875f}, {0.89f, 0.9758f}, {0.91f, 1.f},  {0.995f, 1.f}, {1.f, 1.f}};
    for (const auto& c : cases) {
        EXPECT_NEAR(penPressureCurve(c.pressed), c.counts, 1e-5f) << c.pressed;
    }
    EXPECT_EQ(penPressureCurve(std::nextafter(0.08f, 0.0f)), 0.0f);
    EXPECT_EQ(penPressureCurve(0.08f), 0.15f);
    EXPECT_EQ(penPressureCurve(std::nextafter(0.15f, 0.0f)), 0.15f);
    EXPECT_EQ(penPressureCurve(0.15f), 0.15f);
}

TEST(PenPressure, NeverRisesAsThePenIsPressedLessNorLeavesItsRange)
{
    float last = 0.0f;
    for (int i = -100; i <= 1200; ++i) {
        const float counts = penPressureCurve(i / 1000.0f);
        EXPECT_GE(counts, last) << i;
        EXPECT_LE(counts, 1.0f) << i;
        last = counts;
    }
    const float infinity = std::numeric_limits<float>::infinity();
    EXPECT_EQ(penPressureCurve(infinity), 1.0f);
    EXPECT_EQ(penPressureCurve(-infinity), 0.0f);
    EXPECT_EQ(penPressureCurve(std::nanf("")), 0.0f);
}

}  // namespace
