#include "model/FloatingPiece.h"
#include "model/Canvas.h"
#include "support/Dice.h"
#include "support/LiteralComposite.h"
#include "support/Pixels.h"

#include <QPainter>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

/// Every colour in every strength in a box of a canvas.
InkedImage noise(const QRect& box, Dice& dice)
{
    QImage image = blankCanvas();
    for (int y = box.top(); y <= box.bottom(); ++y) {
        uchar* bytes = image.scanLine(y) + box.left() * 4;
        for (int i = 0; i < box.width() * 4; ++i) {
            bytes[i] = static_cast<uchar>(dice.between(0, 255));
        }
    }
    return {image, InkMap::of(image)};
}

/// A region of which the left half is red and the right half blue.
Cutting halves(const QSize& size)
{
    QImage image(size, QImage::Format_RGBA8888);
    image.fill(Qt::blue);
    QPainter(&image).fillRect(0, 0, size.width() / 2, size.height(), Qt::red);
    return {size, image, QPoint(0, 0)};
}

ActiveStroke transformOf(const QRect& region, float angle, double scaleX, double scaleY)
{
    ActiveStroke record;
    record.tool = ToolType::Transform;
    record.region = region;
    record.angle = angle;
    record.scaleX = scaleX;
    record.scaleY = scaleY;
    return record;
}

QImage wholeTransform(const ActiveStroke& record, const QImage& region)
{
    QImage canvas = blankCanvas();
    QPainter painter(&canvas);
    literalTransform(painter, record, region);
    return canvas;
}

// QImage steps from pixel to pixel in fractions of 65536, rounded down: at the end of a long row it reads that much
// beside where it should, in both directions, and ink may differ by all of 255 from one pixel to the next.
int levelsThatQtDrifts(const ActiveStroke& record)
{
    const double scale = std::max(std::abs(record.scaleX), std::abs(record.scaleY));
    const double longest = std::hypot(record.region.width(), record.region.height()) * scale;
    return static_cast<int>(2 * 255 * longest / 65536);
}

TEST(FloatingPiece, IsThePixelsOfTheWholeTransformThatLandOnTheCanvas)
{
    const QRect small(150, 250, 260, 301);
    const QRect whole(0, 0, 1024, 1024);
    const QRect over(-300, -500, 1400, 1300);
    // Filled to their edges, turned to where the corners of the piece round to other pixels elsewhere.
    const QRect even(300, 300, 100, 100);
    const QRect strip(300, 300, 160, 104);
    const struct {
        QRect region;
        float angle;
        double scaleX;
        double scaleY;
    } cases[] = {{small, 33, 1, 1},     {small, -137, 1.7, 0.6}, {small, 33, -0.1, 0.1},  {small, 0, 0.97, 0.3},
                 {small, 180, 2, -0.7}, {small, 90, 2.5, 1.3},   {small, 270, -1.5, 1.5}, {small, 0, 1, 1.5},
                 {whole, 33, 1, 1},     {whole, 45, 2.9, 2.9},   {whole, 0, 2.9, 2.9},    {whole, 0, -0.35, 0.97},
                 {even, 60, 1, 1},      {even, -60, 1, 1},       {strip, 210, 1, 1},      {strip, 60, 2, 2},
                 {over, -77, 0.5, 1.2}, {over, 180, 1.4, 0.4},   {over, 10, -1.6, 1.6},   {over, 0, 0.1, 2.9}};
    Dice dice(3);
    // Away from where it is cut: edges are blended by hundredths of a pixel, which noise makes much of.
    const InkedImage inSmall = noise(small.adjusted(10, 10, -10, -10), dice);
    const InkedImage large = noise(QRect(100, 200, 700, 300), dice);
    const InkedImage full = noise(QRect(0, 0, 1024, 1024), dice);
    for (const auto& c : cases) {
        const InkedImage& canvas = c.region == small ? inSmall : c.region.width() < small.width() ? full : large;
        ActiveStroke record = transformOf(c.region, c.angle, c.scaleX, c.scaleY);
        record.translation = dice.point(-150, 150);
        const QRectF placed = transformMap(record, c.region.size()).box;
        FloatingPiece piece;
        piece.take(Cutting::of(canvas, c.region));
        const QImage wanted = wholeTransform(record, canvas.image.copy(c.region));
        const double largest = std::max(placed.width() * placed.height(), double(c.region.width() * c.region.height()));
        const bool isMadeWhole = largest <= 2.25 * 1024 * 1024;
        EXPECT_LE(pixels::farthest(piece.sheet(record).image, wanted), isMadeWhole ? 0 : 1 + levelsThatQtDrifts(record))
            << c.region.width() << " wide, angle " << c.angle << ", scales " << c.scaleX << " " << c.scaleY;
    }
}

TEST(FloatingPiece, MovesFlipsAndRightAnglesKeepEveryByteOfTheInk)
{
    Dice dice(4);
    const InkedImage canvas = noise(QRect(0, 0, 300, 200), dice);
    for (const QRect& region : {QRect(20, 30, 60, 81), QRect(-31, 40, 100, 60), QRect(-40, -7, 75, 33)}) {
        for (int i = 0; i < 24; ++i) {
            ActiveStroke record =
                transformOf(region, static_cast<float>(90 * dice.between(-8, 8)), i % 2 ? 1 : -1, i % 3 ? 1 : -1);
            record.translation = dice.point(-20, 300);
            FloatingPiece piece;
            piece.take(Cutting::of(canvas, region));
            const QImage made = piece.sheet(record).image;
            const auto corners = transformedCorners(record);
            const QPointF right = (corners[1] - corners[0]) / region.width();
            const QPointF down = (corners[3] - corners[0]) / region.height();
            const QRect inked = region & QRect(0, 0, 300, 200);
            for (int y = inked.top(); y <= inked.bottom(); ++y) {
                for (int x = inked.left(); x <= inked.right(); ++x) {
                    const QPointF middle =
                        corners[0] + right * (x - region.left() + 0.5) + down * (y - region.top() + 0.5);
                    const QPoint at(static_cast<int>(std::floor(middle.x())), static_cast<int>(std::floor(middle.y())));
                    const QRgb* row = reinterpret_cast<const QRgb*>(canvas.image.constScanLine(y));
                    if (made.rect().contains(at) && qAlpha(row[x]) > 0) {
                        ASSERT_EQ(reinterpret_cast<const QRgb*>(made.constScanLine(at.y()))[at.x()], row[x])
                            << i << " at " << x << ", " << y;
                    }
                }
            }
        }
    }
}

TEST(FloatingPiece, ShowsItsPartOnTheCanvasAtAnyScale)
{
    FloatingPiece piece;
    piece.take(halves(QSize(1024, 1024)));
    const QPoint middle(512, 512);
    for (const float angle : {0.0f, 33.0f, 90.0f}) {
        for (const double scale : {3.9, 5.0, 200.0, 300.0, 1e4, 1e9}) {
            ActiveStroke record = transformOf(QRect(0, 0, 1024, 1024), angle, scale, scale);
            const auto seenTwoPixelsAside = [&](int side) {
                const double turn = static_cast<double>(angle) * M_PI / 180;
                record.translation = (QPointF(std::cos(turn), std::sin(turn)) * 2 * scale * side).toPoint();
                return piece.sheet(record).image.pixelColor(middle);
            };
            EXPECT_EQ(seenTwoPixelsAside(+1), QColor(Qt::red)) << angle << " " << scale;
            EXPECT_EQ(seenTwoPixelsAside(-1), QColor(Qt::blue)) << angle << " " << scale;
            const QColor between = seenTwoPixelsAside(0);
            EXPECT_NEAR(between.red(), 128, 1.5 * 255 / scale + 2) << angle << " " << scale;
            EXPECT_EQ(between.alpha(), 255) << angle << " " << scale;
        }
    }
}

TEST(FloatingPiece, AStripStretchedFarBeyondTheCanvasIsSeenWhereItCrossesIt)
{
    FloatingPiece piece;
    piece.take(halves(QSize(1024, 10)));
    for (const float angle : {0.0f, 90.0f}) {
        const ActiveStroke record = transformOf(QRect(0, 500, 1024, 10), angle, 70, 1);
        const QImage& shown = piece.sheet(record).image;
        const QPoint middle(512, 505);
        const QPoint along = angle > 0 ? QPoint(0, 400) : QPoint(400, 0);
        EXPECT_EQ(shown.pixelColor(middle - along), QColor(Qt::red)) << angle;
        EXPECT_EQ(shown.pixelColor(middle + along), QColor(Qt::blue)) << angle;
    }
}

TEST(FloatingPiece, WhateverIsKeptFromStepToStepIsNotSeen)
{
    Dice dice(6);
    const QRect region(-100, 200, 500, 700);
    const Cutting cutting = Cutting::of(noise(QRect(0, 0, 600, 600), dice), region);
    FloatingPiece piece;
    piece.take(cutting);
    ActiveStroke record = transformOf(region, 0, 1, 1);
    for (int i = 0; i < 60; ++i) {
        record.translation = dice.point(-900, 900);
        if (dice.oneIn(4)) {
            record.angle = static_cast<float>(dice.between(-2, 2) * 45);
            record.scaleX = record.scaleY = dice.oneIn(2) ? 1 : dice.between(1, 400) / 100.0;
        }
        FloatingPiece fresh;
        fresh.take(cutting);
        const InkedImage& sheet = piece.sheet(record);
        ASSERT_LE(pixels::farthest(sheet.image, fresh.sheet(record).image), 1) << i;
        ASSERT_EQ(sheet.ink.box(), InkMap::of(sheet.image).box()) << i;
    }
}

TEST(FloatingPiece, NumbersBeyondMeasureAreHarmless)
{
    const double infinite = std::numeric_limits<double>::infinity();
    FloatingPiece piece;
    for (const QSize& size : {QSize(1, 1), QSize(1024, 3)}) {
        piece.take(halves(size));
        for (const double scaleX : {0.0, 1e-9, -3.0, 1e9, 1e300, -infinite, std::nan("")}) {
            for (const double scaleY : {0.0, 0.1, 257.0, infinite}) {
                for (const float angle : {0.0f, 90.0f, 1e6f, -3e38f, float(infinite)}) {
                    ActiveStroke record = transformOf(QRect(QPoint(5, 5), size), angle, scaleX, scaleY);
                    piece.sheet(record);
                    record.translation = QPoint(std::numeric_limits<int>::max(), std::numeric_limits<int>::min());
                    piece.sheet(record);
                }
            }
        }
    }
    piece.take(Cutting());
    EXPECT_TRUE(piece.sheet(transformOf(QRect(0, 0, 9, 9), 33, 2, 2)).ink.isEmpty());
}

}  // namespace
