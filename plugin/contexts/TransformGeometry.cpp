#include "contexts/TransformGeometry.h"

#include "model/Canvas.h"

#include <QMatrix>

#include <algorithm>

namespace {

const float kScaleRate = 0.0001f;  // for each pixel of distance, at every step
const float kSmallestScale = 0.1f;

int withinReach(int coordinate)
{
    return qBound(-kCanvasSize, coordinate, 2 * kCanvasSize - 1);
}

double signedScale(float scale, bool flipped)
{
    return flipped ? -double(scale) : double(scale);
}

}  // namespace

QPoint withinReach(const QPoint& pixel)
{
    return QPoint(withinReach(pixel.x()), withinReach(pixel.y()));
}

QRect canvasRegion(const QPoint& corner, const QPoint& opposite)
{
    const QPoint topLeft(std::min(corner.x(), opposite.x()), std::min(corner.y(), opposite.y()));
    const QPoint bottomRight(std::max(corner.x(), opposite.x()), std::max(corner.y(), opposite.y()));
    return QRect(withinReach(topLeft), withinReach(bottomRight));
}

QRect wholeCanvas()
{
    return QRect(0, 0, kCanvasSize, kCanvasSize);
}

DragAnchor anchorOf(const QPoint& press, const RegionTransform& transform)
{
    return {press - transform.viewTranslation, float(press.x()) - transform.angle, float(press.x()) - transform.scaleX,
            float(press.y()) - transform.scaleY};
}

void turnTo(RegionTransform& transform, const DragAnchor& anchor, int pointerX)
{
    transform.angle = float(pointerX) - anchor.angle;
}

void scaleTowards(RegionTransform& transform, const DragAnchor& anchor, const QPoint& pointer, bool separately)
{
    transform.scaleX += (float(pointer.x()) - anchor.scaleX) * kScaleRate;
    if (separately) {
        transform.scaleY += (float(pointer.y()) - anchor.scaleY) * kScaleRate;
    } else {
        transform.scaleY = transform.scaleX;
    }
    transform.scaleX = std::max(transform.scaleX, kSmallestScale);
    transform.scaleY = std::max(transform.scaleY, kSmallestScale);
}

Outline transformedOutline(const ViewSpan& span, const RegionTransform& transform)
{
    const QPointF centre = (QPointF(span.start) + QPointF(span.end)) / 2.0;
    QMatrix matrix;
    matrix.translate(centre.x(), centre.y());
    matrix.rotate(-double(transform.angle));  // the view's y points up: clockwise is the other way round
    matrix.scale(double(transform.scaleX), double(transform.scaleY));
    matrix.translate(-centre.x(), -centre.y());
    Outline corners = {
        {span.start, QPointF(span.end.x(), span.start.y()), span.end, QPointF(span.start.x(), span.end.y())}};
    for (QPointF& corner : corners) {
        corner = matrix.map(corner) + transform.viewTranslation;
    }
    return corners;
}

void fillRecord(ActiveStroke& record, const RegionTransform& transform)
{
    record.translation = transform.translation;
    record.angle = transform.angle;
    record.scaleX = signedScale(transform.scaleX, transform.flipHorizontal);
    record.scaleY = signedScale(transform.scaleY, transform.flipVertical);
    record.changed = true;
}
