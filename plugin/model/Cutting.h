#pragma once

#include "model/InkedImage.h"

#include <QImage>
#include <QPoint>
#include <QRect>
#include <QSize>

/// A rectangle cut out of a canvas. It may reach over the canvas, and is transparent there; only the part of it that
/// may have ink is kept.
struct Cutting {
    static Cutting of(const InkedImage& canvas, const QRect& region);  ///< canvas: RGBA8888

    QSize size;    ///< of the rectangle; empty: nothing was cut out
    QImage image;  ///< RGBA8888; null when there is no ink
    QPoint at;     ///< where the image's upper left corner is in the rectangle

    QRect inked() const { return QRect(at, image.size()); }
    Cutting within(const QRect& area) const;  ///< with the ink in there only. area: pixels of the rectangle
    /// The part of the rectangle that area holds, transparent where it has no ink. area: pixels of the rectangle.
    QImage copy(const QRect& area) const { return image.copy(area.translated(-at)); }
};
