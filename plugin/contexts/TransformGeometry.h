#pragma once

#include "model/ActiveStroke.h"
#include "node/RegionOutline.h"

#include <QPoint>
#include <QPointF>
#include <QRect>

/// What a drag selects: points of the canvas, in canvas pixels.
struct Selection {
    QPointF start;
    QPointF end;
    bool isEmpty() const { return start == end; }
};
/// The same with the start as the upper left corner.
Selection normalised(const Selection& selection);
/// The corners in the order in which lines join them, from the start.
Corners cornersOf(const Selection& selection);
/// The canvas pixels from one corner to the other, both included; the whole canvas when nothing is selected. May reach
/// over the canvas, but by no more than its side: what a tiny canvas in a large view selects still fits into memory.
QRect regionOf(const Selection& selection);
/// The nearest pixel not further away from the canvas than its side.
QPoint withinReach(const QPoint& pixel);

/// What has been done to a region: flipped and scaled along its own sides, then turned, about its centre, then moved.
struct RegionTransform {
    QPoint translation;   ///< canvas pixels
    float angle = 0.0f;   ///< degrees, clockwise
    float scaleX = 1.0f;  ///< 0.1 and above
    float scaleY = 1.0f;
    bool flipHorizontal = false;
    bool flipVertical = false;
};

/// Where a drag began, less what the region had been changed by then.
struct DragAnchor {
    QPoint translation;  ///< canvas pixels
    float angle;         ///< the others go by the view's pixels
    float scaleX;
    float scaleY;
};
/// press: in the view; pixel: of the canvas, there.
DragAnchor anchorOf(const QPoint& press, const QPoint& pixel, const RegionTransform& transform);

/// One degree for each pixel that the pointer is right of the anchor.
void turnTo(RegionTransform& transform, const DragAnchor& anchor, int pointerX);
/// One step of scaling. The farther the pointer is from the anchor, the larger the step: dragging sets a rate, which is
/// meant. separately: height by the pointer's y; otherwise it follows the width.
void scaleTowards(RegionTransform& transform, const DragAnchor& anchor, const QPoint& pointer, bool separately);

/// Sets what the transform changes in a record, and its mark of change.
void fillRecord(ActiveStroke& record, const RegionTransform& transform);
