#include "session/sheet/Drawings.h"

#include "session/BouncingBall.h"
#include "session/Plates.h"

#include <algorithm>

namespace sheet {

namespace {

const QColor kOutline(0x2b, 0x38, 0x46);
const QColor kBallColour(0xe0, 0x7b, 0x39);

QVector<QPoint> path(const QPoint& corner, const QVector<QPointF>& through, double spacing = 5)
{
    QVector<QPoint> points = support::curve(through, spacing);
    for (QPoint& point : points) {
        point += corner;
    }
    return points;
}

Ink pencil(int width, const QColor& colour, float opacity = 1.0f)
{
    return {ToolType::Pencil, width, opacity, colour};
}

Ink brush(int width, const QColor& colour, float opacity = 1.0f)
{
    return {ToolType::Brush, width, opacity, colour};
}

constexpr double kScale = 0.38;  // of the plates' ball

void drawBall(Sketch& sketch, const QPoint& corner, int frameNumber)
{
    const QPointF centre = session::ballAt(frameNumber) * kScale;
    const double squash = session::ballSquash(frameNumber);
    const double rx = session::kBallRadius / squash * kScale, ry = session::kBallRadius * squash * kScale;
    const double width = 2 * std::min(rx, ry) - 1, half = std::max(rx - ry, 0.5);
    sketch.stroke(pencil(int(width), kBallColour),
                  path(corner, {centre - QPointF(half, 0), centre + QPointF(half, 0)}));
    sketch.click(brush(24, QColor(0xff, 0xe4, 0xb8), 0.9f), (centre + corner - QPointF(8, 8)).toPoint());
    sketch.stroke(pencil(4, kOutline), path(corner, session::ellipse(centre, rx, ry), 4));
}

}  // namespace

QVector<QPoint> crossingCurve(const QRect& area, int penWidth)
{
    const QVector<QPointF> shape = {{0.00, 0.78}, {0.14, 0.22}, {0.36, 0.04}, {0.58, 0.34}, {0.54, 0.84}, {0.40, 0.98},
                                    {0.32, 0.74}, {0.50, 0.36}, {0.74, 0.16}, {0.90, 0.42}, {1.00, 0.94}};
    const double margin = penWidth / 2.0 + 12;
    const QRectF inner = QRectF(area).adjusted(margin, margin, -margin, -margin);
    QVector<QPointF> through;
    for (const QPointF& p : shape) {
        through << inner.topLeft() + QPointF(p.x() * inner.width(), p.y() * inner.height());
    }
    return support::curve(through, 5);
}

int ballFrame(int key)
{
    return 1 + 2 * key;
}

void bouncingBall(Sketch& sketch, const QPoint& corner)
{
    const double ground = (session::kGround + 12) * kScale;
    sketch.addLayer("Ground", {1});
    sketch.goTo(1);
    sketch.stroke(pencil(5, kOutline), path(corner, {{14, ground}, {200, ground - 3}, {480, ground}}));
    QList<int> frameNumbers;
    for (int key = 0; key < kBallKeys; ++key) {
        frameNumbers << ballFrame(key);
    }
    sketch.addLayer("Ball", frameNumbers);
    for (const int frameNumber : frameNumbers) {
        sketch.goTo(frameNumber);
        drawBall(sketch, corner, frameNumber);
    }
}

void bird(Sketch& sketch, const QPoint& corner)
{
    sketch.addLayer("Bird", {1});
    sketch.goTo(1);
    const QColor blue(0x4d, 0x86, 0xa8);
    const QColor orange(0xe0, 0x90, 0x3a);
    sketch.stroke(pencil(14, blue), path(corner, {{20, 74}, {42, 84}, {68, 94}}));
    sketch.stroke(pencil(52, blue), path(corner, {{64, 92}, {88, 88}, {110, 74}}));
    sketch.stroke(brush(34, QColor(0xf0, 0xd9, 0xb5)), path(corner, {{86, 106}, {108, 100}, {124, 84}}));
    sketch.stroke(pencil(13, QColor(0x2f, 0x5d, 0x7c)), path(corner, {{44, 84}, {70, 100}, {96, 90}}));
    for (const double y : {63.0, 67.0, 70.0}) {
        sketch.stroke(pencil(4, orange), path(corner, {{134, y}, {154, 67}}, 30));
    }
    sketch.click(pencil(11, Qt::white), corner + QPoint(119, 62));
    sketch.click(pencil(6, kOutline), corner + QPoint(121, 62));
    for (const double x : {80.0, 97.0}) {
        sketch.stroke(pencil(3, kOutline), path(corner, {{x, 114}, {x + 3, 138}}, 30));
        sketch.stroke(pencil(3, kOutline), path(corner, {{x + 3, 138}, {x + 15, 138}}, 30));
    }
}

}  // namespace sheet
