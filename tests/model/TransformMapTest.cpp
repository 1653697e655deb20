#include "model/TransformMap.h"
#include "model/Canvas.h"
#include "model/FloatingPiece.h"
#include "support/Dice.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {

/// What floats of a region all in ink.
QImage drawn(const ActiveStroke& record)
{
    QImage solid(record.region.size(), QImage::Format_RGBA8888);
    solid.fill(Qt::black);
    FloatingPiece piece;
    piece.take({solid.size(), solid, QPoint(0, 0)});
    return piece.sheet(record).image;
}

struct Mass {
    double sum = 0;
    QPointF centre;
};

Mass massOf(const QImage& image)
{
    Mass mass;
    for (int y = 0; y < image.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(image.constScanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const double alpha = qAlpha(row[x]) / 255.0;
            mass.sum += alpha;
            mass.centre += alpha * QPointF(x + 0.5, y + 0.5);
        }
    }
    mass.centre /= mass.sum;
    return mass;
}

Mass massWithin(const std::array<QPointF, 4>& corners)
{
    const auto edge = [&corners](size_t i) { return corners[i] - corners[0]; };
    return {std::abs(edge(1).x() * edge(3).y() - edge(1).y() * edge(3).x()), (corners[0] + corners[2]) / 2};
}

TEST(TransformMap, TheCornersOutlineTheVeryPixelsThatAreDrawn)
{
    Dice dice(5);
    for (int i = 0; i < 60; ++i) {
        ActiveStroke record;
        record.region = QRect(dice.point(400, 500), QSize(dice.between(20, 121), dice.between(20, 121)));
        record.translation = dice.point(-60, 60);
        record.angle = static_cast<float>(dice.oneIn(3) ? 90 * dice.between(-9, 9) : dice.between(-400, 400));
        record.scaleX = dice.between(60, 300) / 100.0 * (dice.oneIn(3) ? -1 : 1);
        record.scaleY = dice.oneIn(4) ? record.scaleX : dice.between(60, 300) / 100.0;
        record.pasteAsIs = dice.oneIn(9);
        const std::array<QPointF, 4> corners = transformedCorners(record);
        const Mass ink = massOf(drawn(record));
        const Mass outlined = massWithin(corners);
        const QPointF off = ink.centre - outlined.centre;
        EXPECT_LT(std::hypot(off.x(), off.y()), 0.1) << i << ": angle " << record.angle << ", scale " << record.scaleX;
        EXPECT_NEAR(ink.sum / outlined.sum, 1, 0.01) << i << ": angle " << record.angle << ", scale " << record.scaleX;
    }
}

TEST(TransformMap, TheCornersGoRoundTheRegionFromItsUpperLeftOne)
{
    using Corners = std::array<QPointF, 4>;
    ActiveStroke record;
    record.region = QRect(-7, 200, 10, 20);  // about (-2, 210), also where the middle is negative
    const struct {
        float angle;
        double scaleX;
        bool asIs;
        Corners corners;
    } cases[] = {{0, 1, false, {{{-7, 200}, {3, 200}, {3, 220}, {-7, 220}}}},
                 {90, 1, false, {{{8, 205}, {8, 215}, {-12, 215}, {-12, 205}}}},
                 {-270, 1, false, {{{8, 205}, {8, 215}, {-12, 215}, {-12, 205}}}},
                 {0, -1, false, {{{3, 200}, {-7, 200}, {-7, 220}, {3, 220}}}},
                 {180, 0.55, false, {{{1, 220}, {-5, 220}, {-5, 200}, {1, 200}}}},
                 {33, 7, true, {{{-7, 200}, {3, 200}, {3, 220}, {-7, 220}}}}};
    for (const auto& c : cases) {
        record.angle = c.angle;
        record.scaleX = c.scaleX;
        record.pasteAsIs = c.asIs;
        EXPECT_EQ(transformedCorners(record), c.corners) << c.angle << " " << c.scaleX;
    }
}

TEST(TransformMap, TheCornersAreNumbersWhateverTheRecordHolds)
{
    ActiveStroke record;
    record.region = QRect(0, 0, 1024, 1024);
    for (const double scale : {0.0, 1e9, -1e300, std::numeric_limits<double>::infinity(), std::nan("")}) {
        for (const float angle : {0.0f, 33.0f, 1e6f, 3e38f, std::numeric_limits<float>::infinity()}) {
            record.scaleX = scale;
            record.angle = angle;
            for (const QPointF& corner : transformedCorners(record)) {
                EXPECT_TRUE(std::isfinite(corner.x()) && std::isfinite(corner.y())) << scale << " " << angle;
            }
        }
    }
}

}  // namespace
