#pragma once

#include "model/ActiveStroke.h"

#include <QPoint>
#include <QPointF>
#include <QRect>

#include <array>

/// A rectangle spanned by two points of a view: port pixels, y pointing up.
struct ViewSpan {
    QPoint start;
    QPoint end;
};

/// The nearest pixel not further away from the canvas than its side.
QPoint withinReach(const QPoint& pixel);
/// The canvas pixels from one corner to the other, both included, in whichever order. May reach over the canvas, but by
/// no more than its side: what a tiny canvas in a large view selects still fits into memory.
QRect canvasRegion(const QPoint& corner, const QPoint& opposite);
QRect wholeCanvas();

/// What has been done to a region: flipped and scaled along its own sides, then turned, about its centre, then moved.
struct RegionTransform {
    QPoint translation;      ///< canvas pixels
    QPoint viewTranslation;  ///< the same move in view pixels
    float angle = 0.0f;      ///< degrees, clockwise
    float scaleX = 1.0f;     ///< 0.1 and above
    float scaleY = 1.0f;
    bool flipHorizontal = false;
    bool flipVertical = false;
};

/// Where a drag began, less what the region had been changed by then.
struct DragAnchor {
    QPoint translation;
    float angle;
    float scaleX;
    float scaleY;
};
DragAnchor anchorOf(const QPoint& press, const RegionTransform& transform);

/// One degree for each pixel that the pointer is right of the anchor.
void turnTo(RegionTransform& transform, const DragAnchor& anchor, int pointerX);
/// One step of scaling. The farther the pointer is from the anchor, the larger the step: dragging sets a rate, which is
/// meant. separately: height by the pointer's y; otherwise it follows the width.
void scaleTowards(RegionTransform& transform, const DragAnchor& anchor, const QPoint& pointer, bool separately);

/// Corners in the order in which lines join them, from the span's start.
using Outline = std::array<QPointF, 4>;
Outline transformedOutline(const ViewSpan& span, const RegionTransform& transform);

/// Sets what the transform changes in a record, and its mark of change.
void fillRecord(ActiveStroke& record, const RegionTransform& transform);
