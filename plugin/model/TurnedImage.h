#pragma once

#include <QImage>
#include <QSize>
#include <QTransform>

struct Cutting;

/// A part of what turning, and scaling with it, makes of a cutting; nothing more is made than that part. Pixels are
/// mixed of the nearest four, as in QImage::transformed. Against that a premultiplied channel is one level apart here
/// and there, and more where QImage, which steps along a row in fixed point, has drifted off by the end of a long one,
/// or where the very edge of the cutting is blended. Grown by more than 256, edges are hard.
/// map: from the cutting's pixels to the part's. Returns RGBA8888 of that size.
QImage turnedPart(const Cutting& cutting, const QTransform& map, const QSize& size);
