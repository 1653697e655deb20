#include "model/StrokeRaster.h"
#include "model/Canvas.h"
#include "support/Drawings.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using drawings::line;
using drawings::point;

QImage filled()
{
    QImage canvas(kCanvasSize, kCanvasSize, QImage::Format_RGBA8888);
    canvas.fill(QColor(200, 100, 50));
    return canvas;
}

QImage drawn(const QVector<StrokePoint>& points, ToolType tool)
{
    QImage canvas = tool == ToolType::Eraser ? filled() : drawings::unseenInk();
    rasteriseStroke(canvas, points, 0, tool);
    return canvas;
}

TEST(StrokeRaster, EveryToolLeavesAMarkForAClick)
{
    for (const ToolType tool : {ToolType::Pencil, ToolType::Brush, ToolType::Eraser}) {
        for (const int width : {1, 2, 3, 19, 20, 100}) {
            for (const int moved : {0, 1}) {
                const QVector<StrokePoint> click = line({500 - moved, 500}, {500, 500}, width);
                const QImage before = tool == ToolType::Eraser ? filled() : drawings::unseenInk();
                EXPECT_FALSE(drawn(click, tool) == before)
                    << static_cast<int>(tool) << " width " << width << " moved " << moved;
            }
        }
    }
}

// Whatever is touched is painted anew.
TEST(StrokeRaster, TouchesNoMoreThanWhatIsDrawnAndItsFaintestRim)
{
    const QVector<StrokePoint> cases[] = {
        line({300, 300}, {420, 340}, 1),  line({300, 300}, {300, 300}, 2),    line({300, 300}, {310, 420}, 20),
        line({300, 300}, {420, 180}, 40), line({300, 300}, {420, 300}, 100),  line({-90, 300}, {90, 300}, 40),
        line({900, 900}, {1300, 940}, 1), line({1000, -500}, {1010, 500}, 9),
    };
    for (const QVector<StrokePoint>& points : cases) {
        for (const ToolType tool : {ToolType::Pencil, ToolType::Brush}) {
            QImage image = drawings::unseenInk();
            const QRect touched = rasteriseStroke(image, points, 0, tool);
            const QRect ink = pixels::inkBox(image);
            EXPECT_TRUE(touched.contains(ink)) << points[0].width;
            EXPECT_TRUE(ink.adjusted(-1, -1, 1, 1).contains(touched)) << points[0].width;
        }
    }
}

// A part that starts off the canvas has the pixels it would have on a canvas that reaches there.
TEST(StrokeRaster, LinesFromFarOffCrossTheCanvasWhereTheyShould)
{
    const int far = 1 << 29;
    for (const ToolType tool : {ToolType::Pencil, ToolType::Brush}) {
        for (const int width : {1, 6, 40}) {
            const QImage level = drawn(line({-far, 500}, {far, 500}, width), tool);
            EXPECT_GT(pixels::alpha(level, 0, 500), 80) << width;
            EXPECT_GT(pixels::alpha(level, 1023, 500), 80) << width;
            EXPECT_EQ(pixels::alpha(level, 500, 560), 0) << width;
            const QImage diagonal = drawn(line({far, far}, {-far, -far}, width), tool);
            EXPECT_GT(pixels::alpha(diagonal, 700, 700), 80) << width;
            EXPECT_EQ(pixels::alpha(diagonal, 700, 800), 0) << width;
        }
    }
}

TEST(StrokeRaster, UnusableInputDrawsNothingAndBreaksNothing)
{
    const int largest = std::numeric_limits<int>::max();
    const int smallest = std::numeric_limits<int>::min();
    const float notANumber = std::numeric_limits<float>::quiet_NaN();
    const QVector<StrokePoint> nothing[] = {
        {},
        {point(500, 500)},
        line({500, 500}, {600, 600}, 0),
        line({500, 500}, {600, 600}, -8),
        line({-5000, 10}, {-4000, 900}, 100),
        line({smallest, smallest}, {largest, smallest}, 10),
        line({10, 10}, {20, 20}, 30, 0.0f),
        line({10, 10}, {20, 20}, 30, -1.0f),
        line({10, 10}, {20, 20}, 30, notANumber),
    };
    for (const QVector<StrokePoint>& points : nothing) {
        EXPECT_EQ(drawn(points, ToolType::Pencil), drawings::unseenInk());
        EXPECT_EQ(drawn(points, ToolType::Brush), drawings::unseenInk());
    }
    for (const ToolType tool : {ToolType::Pencil, ToolType::Brush, ToolType::Eraser}) {
        drawn(line({smallest, largest}, {largest, smallest}, largest, 7.0f), tool);
        drawn(line({0, 0}, {1023, 1023}, 100), tool);
    }
    EXPECT_EQ(drawn(line({500, 500}, {500, 500}, 4000), ToolType::Pencil),
              drawn(line({500, 500}, {500, 500}, 100), ToolType::Pencil));
}

}  // namespace
