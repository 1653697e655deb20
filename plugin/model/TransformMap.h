#pragma once

#include "model/ActiveStroke.h"

#include <QPointF>
#include <QRectF>
#include <QSize>
#include <QTransform>

#include <array>

/// Where a transform puts what floats: flipped and scaled, then turned, about the centre of the record's region, then
/// moved; or moved only, when it is pasted as it is. The piece that comes out takes whole pixels, as an image from
/// QImage::transformed does, and is placed by its middle.
struct TransformMap {
    QTransform map;  ///< from the pixels of what floats to those of the canvas
    QRectF box;      ///< whole pixels of the canvas that hold all of the piece, on it or off; empty: there is none
};

QRectF alignedRect(const QRectF& rect);  ///< the least one of whole pixels that holds it, however large

/// size: of what floats. Scales are held within 1e9 either way; what is no number counts as 0.
TransformMap transformMap(const ActiveStroke& record, const QSize& size);

/// Where the corners of the record's region land, in canvas pixels: the upper left, upper right, lower right and lower
/// left one of the region. They outline the very pixels of the piece.
std::array<QPointF, 4> transformedCorners(const ActiveStroke& record);
