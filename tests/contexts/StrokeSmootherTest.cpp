#include "contexts/StrokeSmoother.h"

#include <gtest/gtest.h>

#include <fstream>
#include <limits>
#include <string>
#include <vector>

namespace {

using Sample = StrokeSmoother::Sample;

struct Stroke {
    explicit Stroke(int width) : width(width) {}

    bool add(int x, int y, float opacity = 1.f)
    {
        Sample sample = {x, y, opacity};
        const bool accepted = smoother.accept(sample, width);
        if (accepted) {
            points.push_back(sample);
        }
        return accepted;
    }

    std::vector<std::pair<int, int>> positions() const
    {
        std::vector<std::pair<int, int>> all;
        for (const Sample& point : points) {
            all.emplace_back(point.x, point.y);
        }
        return all;
    }

    int width;
    StrokeSmoother smoother;
    std::vector<Sample> points;
};

using Positions = std::vector<std::pair<int, int>>;

TEST(StrokeSmoother, SmoothsOpacityToo)
{
    Stroke stroke(10);
    stroke.add(0, 0, 0.25f);
    stroke.add(30, 0, 1.f);
    EXPECT_FLOAT_EQ(stroke.points.back().opacity, 0.75f);
}

TEST(StrokeSmoother, TakesToolsWithoutWidthAndPlacesBeyondReckoning)
{
    const int most = std::numeric_limits<int>::max();
    const int least = std::numeric_limits<int>::min();
    Stroke stroke(0);
    stroke.add(least, most);
    stroke.add(least, most);
    EXPECT_FALSE(stroke.add(least, most)) << "the stroke's end";
    EXPECT_TRUE(stroke.add(most, least));
    EXPECT_TRUE(stroke.add(least + 5, most));
    EXPECT_EQ(stroke.positions().front(), (std::pair<int, int>{least, most}));
    EXPECT_EQ(stroke.positions()[2].first, -1) << "half a pixel left of the middle";
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

/// A stroke as the real pointer was sampled, canvas pixels, and the points reckoned from that with whole fractions.
struct Recorded {
    explicit Recorded(const std::string& name)
    {
        std::ifstream file(RECORDED_STROKES "/" + name + ".txt");
        std::string word;
        file >> word >> width >> word;
        readPairs(file, samples);
        readPairs(file, points);
    }

    static void readPairs(std::istream& in, Positions& pairs)
    {
        std::pair<int, int> pair;
        while (in >> pair.first >> pair.second) {
            pairs.push_back(pair);
        }
        in.clear();  // a word, which heads what comes next, or the end
        std::string word;
        in >> word;
    }

    int width = 0;
    Positions samples;
    Positions points;
};

TEST(StrokeSmoother, MakesOfRecordedStrokesThePointsReckonedByHand)
{
    for (const char* name : {"slow-circle", "fast-zigzag", "dot"}) {
        SCOPED_TRACE(name);
        const Recorded recorded(name);
        ASSERT_FALSE(recorded.points.empty());
        Stroke stroke(recorded.width);
        for (const auto& sample : recorded.samples) {
            stroke.add(sample.first, sample.second);
        }
        EXPECT_EQ(stroke.positions(), recorded.points);
    }
}

}  // namespace
