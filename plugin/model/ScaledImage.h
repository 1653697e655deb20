#pragma once

#include <QImage>
#include <QSize>
#include <QTransform>

struct Cutting;

/// A part of what scaling makes of a cutting, and nothing more is made than that part. Grown, pixels are mixed of the
/// nearest two in either direction; shrunk, they are the mean of all that they cover. These are the pixels of
/// QImage::scaled, but for what its rounding down in between loses: two levels of a premultiplied channel at most.
/// map: from the cutting's pixels to the part's; scales and moves only, and makes whole pixels of the whole cutting.
/// Returns RGBA8888 of that size.
QImage scaledPart(const Cutting& cutting, const QTransform& map, const QSize& size);
