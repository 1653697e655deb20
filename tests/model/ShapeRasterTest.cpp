#include "model/ShapeRaster.h"
#include "model/Canvas.h"
#include "support/Drawings.h"

#include <gtest/gtest.h>

#include <cmath>

namespace {

QImage shape(ToolType tool, QPoint from, QPoint to, int width, float opacity = 1.0f)
{
    ActiveStroke record;
    record.tool = tool;
    record.colour = Qt::red;
    record.points = drawings::line(from, to, width, opacity);
    QImage canvas = pixels::marked(1);  // what was there goes
    renderShape(canvas, record, false);
    return canvas;
}

QImage text(const QString& words, bool preview)
{
    ActiveStroke record;
    record.tool = ToolType::Text;
    record.fontFamily = "Arial";
    record.text = words;
    record.points = {drawings::point(100, 200, 30)};
    QImage canvas = blankCanvas();
    renderShape(canvas, record, preview);
    return canvas;
}

TEST(ShapeRaster, ShapesSpanTheirTwoPoints)
{
    const struct {
        ToolType tool;
        QPoint inked;
        QPoint clear;
    } cases[] = {{ToolType::Line, {200, 200}, {250, 150}},
                 {ToolType::Arrow, {200, 200}, {250, 150}},
                 {ToolType::Ellipse, {100, 200}, {200, 200}},
                 {ToolType::Rectangle, {100, 100}, {200, 200}}};
    for (const auto& c : cases) {
        for (const bool reversed : {false, true}) {
            const QPoint from(100, 100);
            const QPoint to(300, 300);
            const QImage image = shape(c.tool, reversed ? to : from, reversed ? from : to, 6, 0.5f);
            EXPECT_EQ(pixels::alpha(image, c.inked.x(), c.inked.y()), 127) << static_cast<int>(c.tool);
            EXPECT_EQ(pixels::alpha(image, c.clear.x(), c.clear.y()), 0) << static_cast<int>(c.tool);
            EXPECT_EQ(pixels::alpha(image, 7, 13), 0) << "the canvas was not cleared";
        }
    }
}

TEST(ShapeRaster, ArrowHeadsAreFortyPixelsOrAFifthOfAShortShaft)
{
    const struct {
        int shaft;
        double head;
    } cases[] = {{400, 40}, {200, 40}, {100, 20}};
    for (const auto& c : cases) {
        const QImage image = shape(ToolType::Arrow, {100, 500}, {100 + c.shaft, 500}, 1);
        const QRect box = pixels::inkBox(image);
        const double halfHeight = c.head * std::sin(M_PI / 5);
        EXPECT_NEAR(box.height(), 2 * halfHeight + 1, 2.1) << c.shaft;
        const int x = 100 + c.shaft - static_cast<int>(c.head * std::cos(M_PI / 5) / 2);
        EXPECT_GT(pixels::alpha(image, x, 500 - static_cast<int>(halfHeight / 2))
                      + pixels::alpha(image, x, 500 - static_cast<int>(halfHeight / 2) - 1),
                  0)
            << c.shaft;
    }
}

TEST(ShapeRaster, TooFewPointsDrawNothing)
{
    for (const ToolType tool :
         {ToolType::Text, ToolType::Line, ToolType::Arrow, ToolType::Ellipse, ToolType::Rectangle}) {
        ActiveStroke record;
        record.tool = tool;
        if (tool != ToolType::Text) {
            record.points = {drawings::point(10, 10)};
        }
        QImage canvas = pixels::marked(3);
        renderShape(canvas, record, true);
        EXPECT_TRUE(pixels::inkBox(canvas).isNull()) << static_cast<int>(tool);
    }
}

TEST(ShapeRaster, ShapesWithoutExtentOrFarOffAreHarmless)
{
    const int far = std::numeric_limits<int>::max();
    for (const ToolType tool : {ToolType::Line, ToolType::Arrow, ToolType::Ellipse, ToolType::Rectangle}) {
        shape(tool, {500, 500}, {500, 500}, 6);
        shape(tool, {-far, far}, {far, -far}, 6);
    }
}

TEST(ShapeRaster, OnlyAPreviewFramesTheText)
{
    EXPECT_TRUE(pixels::inkBox(text("", false)).isNull());
    const QRect blankFrame = pixels::inkBox(text("", true));
    EXPECT_FALSE(blankFrame.isNull());

    const QRect words = pixels::inkBox(text("Ink", false));
    const QRect framed = pixels::inkBox(text("Ink", true));
    EXPECT_FALSE(words.isNull());
    EXPECT_GE(words.top(), 200);
    EXPECT_GE(words.left(), 98);
    EXPECT_TRUE(framed.contains(words));
    EXPECT_EQ(framed.left(), 100 - 4 - 1);
    EXPECT_GT(framed.width(), blankFrame.width());
}

TEST(ShapeRaster, PointsAreAsLargeOnEveryScreen)
{
    const auto boxOn = [](int dotsPerMetre) {
        ActiveStroke record;
        record.tool = ToolType::Text;
        record.text = "Ink";
        record.points = {drawings::point(100, 200, 72)};
        QImage canvas = blankCanvas();
        canvas.setDotsPerMeterX(dotsPerMetre);  // as images come with the screen's
        canvas.setDotsPerMeterY(dotsPerMetre);
        renderShape(canvas, record, false);
        return pixels::inkBox(canvas);
    };
    const QRect usual = boxOn(3780);
    EXPECT_EQ(boxOn(7560), usual);
    EXPECT_NEAR(usual.height(), 70, 10) << "72 points are an inch, of 96 pixels; capitals are three quarters of that";
}

}  // namespace
