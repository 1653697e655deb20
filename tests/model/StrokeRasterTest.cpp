#include "model/StrokeRaster.h"
#include "model/Canvas.h"
#include "support/Drawings.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using drawings::line;
using drawings::point;

constexpr QRgb kUnseen = 0x00c86432;  // red 200, green 100, blue 50

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

QStringList around(const QImage& image, QPoint topLeft, QPoint bottomRight)
{
    return pixels::alphaRows(image, QRect(topLeft, bottomRight));
}

TEST(StrokeRaster, PencilOfWidthOneVisitsBresenhamsPixels)
{
    const struct {
        QPoint from;
        QPoint to;
        QStringList rows;
    } cases[] = {
        {{10, 10}, {16, 12}, {"99.....", "..999..", ".....99"}},
        {{16, 12}, {10, 10}, {"99.....", "..999..", ".....99"}},
        {{10, 10}, {10, 10}, {"9......", ".......", "......."}},
        {{10, 12}, {12, 10}, {"..9....", ".9.....", "9......"}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(around(drawn(line(c.from, c.to, 1), ToolType::Pencil), {10, 10}, {16, 12}), c.rows);
    }
}

TEST(StrokeRaster, PencilCrossingItselfDoesNotBuildUp)
{
    QVector<StrokePoint> cross = {point(300, 300, 20, 0.5f), point(400, 400, 20, 0.5f), point(400, 300, 20, 0.5f),
                                  point(300, 400, 20, 0.5f)};
    const QImage image = drawn(cross, ToolType::Pencil);
    EXPECT_EQ(pixels::alpha(image, 350, 350), 127);
    EXPECT_EQ(pixels::alpha(image, 320, 320), 127);
}

TEST(StrokeRaster, OpacityGrowsAlongAPencilLine)
{
    const QImage image = drawn({point(100, 100, 1, 0.0f), point(200, 100, 1, 1.0f)}, ToolType::Pencil);
    for (int x = 100; x <= 200; x += 20) {
        EXPECT_NEAR(pixels::alpha(image, x, 100), (x - 100) * 2.55, 1.01) << x;
    }
}

TEST(StrokeRaster, EraserTakesAlphaAndLeavesColour)
{
    const QImage image = drawn(line({100, 100}, {140, 100}, 20, 0.01f), ToolType::Eraser);
    EXPECT_EQ(image.pixel(120, 100), kUnseen);
    EXPECT_EQ(image.pixel(120, 109), kUnseen);
    EXPECT_EQ(pixels::alpha(image, 120, 112), 255);
    EXPECT_EQ(pixels::alpha(image, 85, 100), 255);
}

TEST(StrokeRaster, BrushIsAConeAcrossItsLine)
{
    const QImage image = drawn(line({300, 500}, {500, 500}, 40), ToolType::Brush);
    for (int d = 0; d <= 20; ++d) {
        EXPECT_NEAR(pixels::alpha(image, 400, 500 + d), (1.0 - d / 20.0) * 255, 1.5) << d;
        EXPECT_EQ(pixels::alpha(image, 400, 500 + d), pixels::alpha(image, 400, 500 - d)) << d;
    }
}

TEST(StrokeRaster, NarrowBrushIsWiderAndWeaker)
{
    const QImage narrow = drawn(line({300, 500}, {500, 500}, 19), ToolType::Brush);
    EXPECT_EQ(pixels::alpha(narrow, 400, 500), static_cast<int>(0.4f * 255));
    EXPECT_GT(pixels::alpha(narrow, 400, 510), 0);
    EXPECT_EQ(pixels::alpha(narrow, 400, 511), 0);
    EXPECT_EQ(pixels::alpha(drawn(line({300, 500}, {500, 500}, 20), ToolType::Brush), 400, 500), 255);
}

TEST(StrokeRaster, BrushKeepsEachEndsOpacityWhicheverWayItIsDrawn)
{
    const QImage rightward = drawn({point(300, 500, 40, 0.2f), point(500, 500, 40, 0.8f)}, ToolType::Brush);
    const QImage leftward = drawn({point(500, 500, 40, 0.8f), point(300, 500, 40, 0.2f)}, ToolType::Brush);
    EXPECT_NEAR(pixels::alpha(rightward, 400, 500), 127, 2);
    EXPECT_EQ(pixels::alpha(rightward, 400, 500), pixels::alpha(leftward, 400, 500));
    EXPECT_EQ(pixels::alpha(rightward, 480, 500), pixels::alpha(leftward, 480, 500));
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

TEST(StrokeRaster, ADabSitsSymmetricallyOnTheWalkedPixel)
{
    for (const int width : {3, 4, 5, 6, 21, 99, 100}) {
        for (const ToolType tool : {ToolType::Pencil, ToolType::Brush}) {
            const QRect box = pixels::inkBox(drawn(line({500, 500}, {500, 500}, width), tool));
            EXPECT_EQ(box.center(), QPoint(500, 500)) << width;
            EXPECT_EQ(box.width() % 2, 1) << width;
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
