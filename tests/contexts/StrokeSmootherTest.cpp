#include "contexts/StrokeSmoother.h"

#include <gtest/gtest.h>

namespace {

struct Stroke {
    explicit Stroke(int width) : width(width) {}

    bool add(int x, int y, float opacity = 1.f)
    {
        StrokePoint point = {width, opacity, 1.f, QPoint(x, y)};
        const bool accepted = smoother.accept(point, points);
        if (accepted) {
            points.append(point);
        }
        return accepted;
    }

    std::vector<std::pair<int, int>> positions() const
    {
        std::vector<std::pair<int, int>> all;
        for (const StrokePoint& point : points) {
            all.emplace_back(point.position.x(), point.position.y());
        }
        return all;
    }

    int width;
    StrokeSmoother smoother;
    QVector<StrokePoint> points;
};

using Positions = std::vector<std::pair<int, int>>;

TEST(StrokeSmoother, AClickLeavesTwoPointsOnePixelApart)
{
    Stroke stroke(40);  // the thinning distance, 4 pixels, does not apply to a stroke's first two points
    EXPECT_TRUE(stroke.add(99, 50));
    EXPECT_TRUE(stroke.add(100, 50));
    EXPECT_EQ(stroke.positions(), (Positions{{99, 50}, {100, 50}}));
}

TEST(StrokeSmoother, WeighsTheLastFiveSamplesNewestMost)
{
    Stroke stroke(1);
    for (int x : {0, 30, 90, 180, 300, 450}) {
        EXPECT_TRUE(stroke.add(x, -x));
    }
    // 30 * 2/3; (90*3 + 30*2) / 6; (180*4 + 90*3 + 30*2) / 10; then five of them, then without the first
    EXPECT_EQ(stroke.positions(), (Positions{{0, 0}, {20, -20}, {55, -55}, {105, -105}, {170, -170}, {280, -280}}));
}

TEST(StrokeSmoother, RoundsHalvesAwayFromZero)
{
    Stroke stroke(1);
    stroke.add(0, 0);
    stroke.add(0, 0);
    stroke.add(5, -5);  // 15 / 6 = 2.5
    EXPECT_EQ(stroke.points.last().position, QPoint(3, -3));
}

TEST(StrokeSmoother, SmoothsOpacityButNotWidthAndHardness)
{
    StrokeSmoother smoother;
    QVector<StrokePoint> points;
    StrokePoint first = {10, 0.25f, 0.5f, QPoint(0, 0)};
    ASSERT_TRUE(smoother.accept(first, points));
    points.append(first);
    StrokePoint second = {20, 1.f, 0.75f, QPoint(30, 0)};
    ASSERT_TRUE(smoother.accept(second, points));
    EXPECT_FLOAT_EQ(second.opacity, 0.75f);
    EXPECT_EQ(second.width, 20);
    EXPECT_FLOAT_EQ(second.hardness, 0.75f);
}

TEST(StrokeSmoother, DropsShortMovesAndForgetsThem)
{
    Stroke stroke(100);
    stroke.add(0, 0);
    stroke.add(0, 0);
    EXPECT_FALSE(stroke.add(18, 0));  // smoothed 9: nearer than a tenth of the width
    EXPECT_FALSE(stroke.add(18, 0));  // had the first stayed, this one would be at 13
    EXPECT_TRUE(stroke.add(20, 0));   // smoothed 10: exactly a tenth is far enough
    EXPECT_EQ(stroke.points.last().position, QPoint(10, 0));
}

TEST(StrokeSmoother, DropsASampleAtTheStrokesEnd)
{
    Stroke stroke(1);
    stroke.add(0, 0);
    stroke.add(3, 0);
    const QPoint end = stroke.points.last().position;
    EXPECT_FALSE(stroke.add(end.x(), end.y()));
    EXPECT_EQ(stroke.points.size(), 2);
}

TEST(StrokeSmoother, StartsEachStrokeAnew)
{
    Stroke stroke(1);
    stroke.add(500, 500);
    stroke.smoother.clear();
    stroke.points.clear();
    stroke.add(0, 0);
    EXPECT_EQ(stroke.positions(), (Positions{{0, 0}}));
}

}  // namespace
