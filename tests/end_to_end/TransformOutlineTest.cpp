// Where the transform tool's outline is seen: around what floats, at any zoom. Its corners are found in pictures of a
// real view, those of what floats in the picture that is left of it; where a view shows that follows from the camera.

#include "support/TransformFixture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <vector>

using support::CameraSetting;
using support::PointedTransform;

namespace {

using Corners = std::array<QPointF, 4>;

/// The corners of a rectangle that lies somehow in a picture, in pixels from its upper left: those of the one that has
/// the same moments. share: how much of a pixel is the rectangle's, 0..1.
Corners cornersOf(const QSize& picture, const std::function<double(int x, int y)>& share)
{
    double sum = 0, sumX = 0, sumY = 0, sumXX = 0, sumXY = 0, sumYY = 0;
    for (int row = 0; row < picture.height(); ++row) {
        for (int column = 0; column < picture.width(); ++column) {
            const double weight = share(column, row), x = column + 0.5, y = row + 0.5;
            sum += weight;
            sumX += weight * x;
            sumY += weight * y;
            sumXX += weight * x * x;
            sumXY += weight * x * y;
            sumYY += weight * y * y;
        }
    }
    const QPointF centre(sumX / sum, sumY / sum);
    const double xx = sumXX / sum - centre.x() * centre.x();
    const double xy = sumXY / sum - centre.x() * centre.y();
    const double yy = sumYY / sum - centre.y() * centre.y();
    const double angle = std::atan2(2 * xy, xx - yy) / 2;
    const double mean = (xx + yy) / 2;
    const double spread = std::hypot((xx - yy) / 2, xy);
    const QPointF along = QPointF(std::cos(angle), std::sin(angle)) * std::sqrt(3 * (mean + spread));
    const QPointF across = QPointF(-std::sin(angle), std::cos(angle)) * std::sqrt(3 * (mean - spread));
    return {centre - along - across, centre + along - across, centre + along + across, centre - along + across};
}

/// Of a red line around a rectangle: the line itself lies half within.
Corners outlineCorners(const QImage& picture)
{
    const auto isLine = [&](int x, int y) {
        const QRgb pixel = picture.pixel(x, y);
        return qRed(pixel) > qGreen(pixel) + 20;  // on grey and on blue
    };
    QImage line(picture.size(), QImage::Format_RGB32);
    line.fill(Qt::black);
    for (int y = 0; y < line.height(); ++y) {
        for (int x = 0; x < line.width(); ++x) {
            if (isLine(x, y)) {
                line.setPixel(x, y, qRgb(255, 255, 255));
            }
        }
    }
    const QImage within = line.createHeuristicMask();
    return cornersOf(picture.size(), [&](int x, int y) {
        return within.pixelIndex(x, y) == 0 ? 0.0 : isLine(x, y) ? 0.5 : 1.0;
    });
}

/// Of all that is drawn on a canvas.
Corners pieceCorners(const QImage& canvas)
{
    return cornersOf(canvas.size(), [&](int x, int y) { return qAlpha(canvas.pixel(x, y)) / 255.0; });
}

Corners inView(Corners corners, const CameraSetting& camera)
{
    const QRectF canvas = support::literalCanvasRect(camera, kView);
    for (QPointF& corner : corners) {
        corner = canvas.topLeft() + corner * (canvas.width() / kCanvas);
    }
    return corners;
}

/// From each corner to the nearest of the others, the farthest; pixels along either axis.
double farthestApart(const Corners& some, const Corners& others)
{
    double farthest = 0;
    for (const QPointF& corner : some) {
        double nearest = kCanvas;
        for (const QPointF& other : others) {
            const QPointF apart = corner - other;
            nearest = std::min(nearest, std::max(std::abs(apart.x()), std::abs(apart.y())));
        }
        farthest = std::max(farthest, nearest);
    }
    return farthest;
}

const struct {
    const char* name;
    void (*act)(PointedTransform& tool);
} kTransforms[] = {
    {"moved",
     [](PointedTransform& tool) {
         tool.move({-21, 9});
     }},
    {"turned", [](PointedTransform& tool) { tool.turn(33); }},
    {"scaled",
     [](PointedTransform& tool) {
         tool.scale({-60, 0}, 15);
     }},
    {"all of it",
     [](PointedTransform& tool) {
         tool.scale({-60, 30}, 15, true);
         tool.turn(-70);
         tool.choose("Flip Horizontal");
         tool.move({-30, -5});
     }},
};

const QPoint kMiddle(520, 199);  // of what is selected, in the view
constexpr QPointF kHalf(60, 35);

using TransformOutline = TransformFixture;

}  // namespace

TEST_F(TransformOutline, IsAroundThePixelsInEveryZoomWhicheverItWasBegunIn)
{
    const CameraSetting zooms[] = {zoomed(1, {}), zoomed(2, {0.1, 0.02}), zoomed(0.5, {-0.06, 0.03})};
    QImage full(kCanvas, kCanvas, QImage::Format_RGBA8888);
    full.fill(Qt::blue);
    for (const CameraSetting& begun : zooms) {
        for (const auto& transform : kTransforms) {
            // What is pasted into an empty frame is a rectangle of the region's size, whichever that is.
            open(full);
            look(begun);
            const QPoint half = (kHalf / begun.zoom).toPoint();
            tool().select(kMiddle - half, kMiddle + half);
            tool().choose("Copy");
            run("currentTime 2; tqLumisketchFrame -insert front");
            tool().choose("Paste and Transform", kMiddle - half);
            transform.act(tool());
            std::vector<Corners> outlines;
            for (const CameraSetting& camera : zooms) {
                look(camera);
                outlines.push_back(outlineCorners(stage().picture()));
            }
            tool().apply();
            const Corners piece = pieceCorners(support::framePictures(drawing()).value(1));
            for (std::size_t i = 0; i < outlines.size(); ++i) {
                EXPECT_LE(farthestApart(outlines[i], inView(piece, zooms[i])), 1.0)
                    << transform.name << " at zoom " << begun.zoom << ", seen at " << zooms[i].zoom;
            }
        }
    }
}
