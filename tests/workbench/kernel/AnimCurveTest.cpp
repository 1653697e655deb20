#include "kernel/AnimCurve.h"

#include <gtest/gtest.h>

#include <limits>

using kernel::AnimCurve;

namespace {

AnimCurve curveOf(const std::vector<kernel::CurveKey>& keys)
{
    AnimCurve curve;
    for (const kernel::CurveKey& key : keys)
        curve.set(key);
    return curve;
}

kernel::CurveKey linear(double ticks, double value)
{
    return {ticks, value, kernel::kLinearTangent, kernel::kLinearTangent};
}

}  // namespace

TEST(AnimCurve, StaysFiniteAndLevelWhateverItsValues)
{
    constexpr double kMost = std::numeric_limits<double>::max();
    EXPECT_EQ(curveOf({linear(0, -kMost), linear(2, kMost)}).valueAt(1), 0);
    EXPECT_EQ(curveOf({linear(0, 0.1), linear(3, 0.1)}).valueAt(1), 0.1);
}
