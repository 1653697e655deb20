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

TEST(AnimCurve, RunsStraightBetweenItsKeysAndIsConstantOutside)
{
    const AnimCurve curve = curveOf({linear(30, 4), linear(10, 2), linear(20, 6)});
    const struct {
        double ticks, value;
    } cases[] = {{-1e300, 2}, {9, 2}, {10, 2}, {15, 4}, {20, 6}, {25, 5}, {30, 4}, {31, 4}, {1e300, 4}};
    for (const auto& c : cases)
        EXPECT_EQ(curve.valueAt(c.ticks), c.value) << "at " << c.ticks;
    EXPECT_EQ(AnimCurve().valueAt(3), 0);
}

TEST(AnimCurve, HoldsAValueBehindAStepUntilTheNextKey)
{
    for (const int step : {kernel::kStepTangent, kernel::kStepNextTangent}) {
        const AnimCurve curve = curveOf({{10, 1, kernel::kLinearTangent, step}, linear(20, 3)});
        EXPECT_EQ(curve.valueAt(19), 1);
        EXPECT_EQ(curve.valueAt(20), 3);
    }
    const AnimCurve smooth = curveOf({{10, 1, 18, 18}, {20, 3, 18, 18}});
    EXPECT_EQ(smooth.valueAt(15), 2) << "tangents that are not computed with are straight";
}

TEST(AnimCurve, StaysFiniteAndLevelWhateverItsValues)
{
    constexpr double kMost = std::numeric_limits<double>::max();
    EXPECT_EQ(curveOf({linear(0, -kMost), linear(2, kMost)}).valueAt(1), 0);
    EXPECT_EQ(curveOf({linear(0, 0.1), linear(3, 0.1)}).valueAt(1), 0.1);
}

TEST(AnimCurve, KeepsItsKeysInOrderAndOneForEachInstant)
{
    AnimCurve curve = curveOf({linear(10, 1), linear(20, 2), linear(30, 3)});
    curve.set(linear(20, 5));
    EXPECT_EQ(curve.keys().size(), 3u);
    EXPECT_EQ(curve.keyAt(20)->value, 5);
    EXPECT_EQ(curve.keyAt(21), nullptr);
    EXPECT_FALSE(curve.append({linear(40, 1), linear(40, 2)}));
    EXPECT_FALSE(curve.append({linear(30, 1)}));
    EXPECT_EQ(curve.keys().size(), 3u) << "what is not in order leaves all as it was";
    EXPECT_TRUE(curve.append({linear(40, 1), linear(50, 2)}));
    EXPECT_EQ(curve.erase(20, 40), 3);
    EXPECT_EQ(curve.keys(), (std::vector<kernel::CurveKey>{linear(10, 1), linear(50, 2)}));
    EXPECT_EQ(curve.erase(11, 49), 0);
}

TEST(AnimCurve, DropsWhatFittedItsOldKeys)
{
    AnimCurve curve = curveOf({linear(10, 1), linear(20, 2)});
    curve.statements = {"setAttr \".kix[0]\" 1"};
    EXPECT_EQ(curve.erase(11, 12), 0);
    EXPECT_EQ(curve.statements.size(), 1u);
    curve.set(linear(15, 1));
    EXPECT_TRUE(curve.statements.empty());
}
