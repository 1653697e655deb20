#pragma once

#include <QImage>
#include <QSize>
#include <QTransform>

struct Cutting;

/// A part of what turning, and scaling with it, makes of a cutting; nothing more is made than that part. Pixels are
/// mixed of the nearest four. These are the pixels of QImage::transformed; where that steps along a row in fixed point
/// from another beginning, a level of a premultiplied channel apart.
/// map: from the cutting's pixels to the part's. Returns RGBA8888 of that size.
QImage turnedPart(const Cutting& cutting, const QTransform& map, const QSize& size);
