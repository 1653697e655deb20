#include "commands/Retiming.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

constexpr int kMin = std::numeric_limits<int>::min();
constexpr int kMax = std::numeric_limits<int>::max();

TEST(Retiming, SnapsASpanOutwardToFrames)
{
    const struct {
        QList<int> numbers;
        FrameSpan span;
        FrameSpan snapped;
    } cases[] = {
        {{1, 2, 3, 10}, {2, 3}, {2, 3}},
        {{1, 2, 3, 10}, {5, 7}, {3, 10}},
        {{1, 2, 3, 10}, {4, 5}, {3, 10}},
        {{5, 8}, {2, 4}, {2, 5}},
        {{5, 8}, {6, 20}, {5, 20}},
        {{5, 8}, {9, 9}, {8, 9}},
        {{}, {3, 4}, {3, 4}},
        {{kMin, kMax}, {0, 1}, {kMin, kMax}},
        {{kMin}, {kMin, kMin}, {kMin, kMin}},
    };
    for (const auto& c : cases) {
        const FrameSpan snapped = snappedSpan(c.numbers, c.span);
        EXPECT_EQ(snapped.first, c.snapped.first) << c.span.first << ".." << c.span.end;
        EXPECT_EQ(snapped.end, c.snapped.end) << c.span.first << ".." << c.span.end;
    }
}

TEST(Retiming, ChangesTheGapsInTheSpanAndKeepsFramesApart)
{
    const struct {
        QList<int> numbers;
        FrameSpan span;
        int value;
        bool relative;
        QList<int> retimed;
    } cases[] = {
        {{1, 2, 3, 10}, {2, 3}, 3, false, {1, 2, 5, 12}},
        {{1, 2, 3}, {1, 2}, -5, true, {1, 2, 3}},  // cannot go to or before 1
        {{1, 5, 9}, {1, 10}, 3, false, {1, 4, 7}},
        {{1, 5, 9}, {1, 10}, -2, true, {1, 3, 5}},
        {{1, 5, 9, 20}, {1, 2}, -4, true, {1, 2, 6, 17}},  // those behind the span follow as far as there is room
        {{1, 5, 9}, {9, 10}, 4, false, {1, 5, 9}},         // the last has no gap of its own
        {{1, 5, 9}, {1, 10}, 0, false, {1, 2, 3}},
        {{-9, -5, 0}, {-9, -8}, 1, false, {-9, -8, -3}},
        {{7}, {7, 8}, 5, false, {7}},
        {{3, 3, 8}, {10, 11}, 2, false, {3, 4, 9}},  // frames of one number come apart
        {{1, kMax - 1, kMax}, {1, 2}, kMin, true, {1, 2, 3}},
        {{kMin, kMax}, {kMin, kMax}, 1, false, {kMin, kMin + 1}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(retimedNumbers(c.numbers, c.span, {c.value, c.relative, false}), c.retimed)
            << "value " << c.value << " from " << c.numbers.first();
    }
}

TEST(Retiming, GivesNothingWhenANumberWouldLeaveTheRange)
{
    EXPECT_TRUE(retimedNumbers({1, 2}, {1, 2}, {kMax, false, false}).isEmpty());
    EXPECT_TRUE(retimedNumbers({1, 2, 3}, {1, 3}, {kMax, true, false}).isEmpty());
    EXPECT_TRUE(retimedNumbers({1, 2, kMax}, {1, 2}, {2, false, false}).isEmpty());
    EXPECT_EQ(retimedNumbers({1, 2}, {1, 2}, {kMax - 1, false, false}), (QList<int>{1, kMax}));
}

TEST(Retiming, LandsInTheSpanOrOnTheFrameBehindItsStart)
{
    const struct {
        QList<int> numbers;
        int first;
        int here;
        int next;
    } cases[] = {
        {{1, 2, 3, 10}, 2, 1, 2}, {{1, 2, 3, 10}, 10, 3, 3}, {{1, 2, 3, 10}, 0, 0, 0}, {{1, 2, 3, 10}, 5, 2, 3},
        {{4}, 4, 0, 0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(landingIndex(c.numbers, {c.first, c.first + 1}, false), c.here) << c.first;
        EXPECT_EQ(landingIndex(c.numbers, {c.first, c.first + 1}, true), c.next) << c.first;
    }
}

TEST(Retiming, MovesTheFramesFoundByTheirNumbersBothEndsIncluded)
{
    EXPECT_EQ(numbersToMove({1, 2, 3, 9}, 2, 9), (QList<int>{2, 3, 9}));
    EXPECT_EQ(numbersToMove({1, 2, 3, 9}, 4, 8), QList<int>());
    EXPECT_EQ(numbersToMove({1, 2, 3, 9}, 3, 1), QList<int>());
    EXPECT_EQ(numbersToMove({2, 2, 3, kMax}, kMin, kMax), (QList<int>{2, 3, kMax}));
}

TEST(Retiming, FindsWhatIsInTheWayOfAMove)
{
    const struct {
        QList<int> numbers;
        int offset, first, last;
        MoveObstacle obstacle;
        qint64 at;
    } cases[] = {
        {{1, 2, 3}, 2, 1, 2, MoveObstacle::Frame, 3},
        {{1, 2, 4}, 1, 1, 2, MoveObstacle::None, 0},
        {{1, 2, 3}, 1, 1, 3, MoveObstacle::None, 0},
        {{1, 5, 9}, -4, 5, 9, MoveObstacle::Frame, 1},
        {{1, 2, 4, 5}, 3, 1, 2, MoveObstacle::Frame, 5},
        {{4, 5, 7, 8}, -3, 7, 8, MoveObstacle::Frame, 4},
        {{2, 2, 3}, -1, 3, 3, MoveObstacle::Frame, 2},
        {{2, 2, 3}, 1, 2, 3, MoveObstacle::None, 0},
        {{1, 2}, kMax, 1, 2, MoveObstacle::Range, qint64(kMax) + 2},
        {{-5}, kMin, -5, -5, MoveObstacle::Range, qint64(kMin) - 5},
    };
    for (const auto& c : cases) {
        qint64 at = 0;
        const QList<int> moving = numbersToMove(c.numbers, c.first, c.last);
        EXPECT_EQ(obstacleToMove(c.numbers, moving, c.offset, at), c.obstacle) << c.offset;
        if (c.obstacle != MoveObstacle::None) {
            EXPECT_EQ(at, c.at) << c.offset;
        }
    }
}

}  // namespace
