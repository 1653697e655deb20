#include "contexts/TransformGeometry.h"

#include "model/Canvas.h"
#include "settings/Rounding.h"

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

Selection normalised(const Selection& selection)
{
    return {
        QPointF(std::min(selection.start.x(), selection.end.x()), std::min(selection.start.y(), selection.end.y())),
        QPointF(std::max(selection.start.x(), selection.end.x()), std::max(selection.start.y(), selection.end.y()))};
}

Corners cornersOf(const Selection& selection)
{
    const QPointF& start = selection.start;
    const QPointF& end = selection.end;
    return {{start, QPointF(end.x(), start.y()), end, QPointF(start.x(), end.y())}};
}

QRect regionOf(const Selection& selection)
{
    if (selection.isEmpty()) {
        return QRect(0, 0, kCanvasSize, kCanvasSize);
    }
    const Selection corners = normalised(selection);
    return QRect(withinReach(roundedHalfUp(corners.start)), withinReach(roundedHalfUp(corners.end)));
}

QPoint withinReach(const QPoint& pixel)
{
    return QPoint(withinReach(pixel.x()), withinReach(pixel.y()));
}

DragAnchor anchorOf(const QPoint& press, const QPoint& pixel, const RegionTransform& transform)
{
    return {pixel - transform.translation, float(press.x()) - transform.angle, float(press.x()) - transform.scaleX,
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

void fillRecord(ActiveStroke& record, const RegionTransform& transform)
{
    record.translation = transform.translation;
    record.angle = transform.angle;
    record.scaleX = signedScale(transform.scaleX, transform.flipHorizontal);
    record.scaleY = signedScale(transform.scaleY, transform.flipVertical);
    record.changed = true;
}
