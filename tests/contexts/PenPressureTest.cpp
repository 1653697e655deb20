#include "contexts/PenPressure.h"

#include <gtest/gtest.h>

namespace {

TEST(PenPressure, SteadiesLightTouchesAndBendsTheUpperHalf)
{
    const struct {
        float pressed, counts;
    } cases[] = {{0.01f, 0.f},     {0.05f, 0.f}, {0.079f, 0.f}, {0.081f, 0.15f}, {0.1f, 0.15f},
                 {0.15f, 0.15f},   {0.3f, 0.3f}, {0.5f, 0.5f},  {0.7f, 0.82f},   {0.75f, 0.875f},
                 {0.89f, 0.9758f}, {0.91f, 1.f}, {0.995f, 1.f}, {1.f, 1.f}};
    for (const auto& c : cases) {
        EXPECT_NEAR(penPressureCurve(c.pressed), c.counts, 1e-5f) << c.pressed;
    }
}

}  // namespace
