#pragma once

#include <QImage>
#include <QSize>
#include <QTransform>

struct Cutting;

/// A part of what scaling makes of a cutting; nothing more is made than that part. Grown, pixels are mixed of the
/// nearest two in either direction; shrunk, they are the mean of all that they cover. QImage::transformed does the same
/// when nothing is turned; a premultiplied channel is one level apart where that rounds in between, and more where its
/// steps in fixed point have drifted off by the end of a long row.
/// map: from the cutting's pixels to the part's; scales and moves only, and makes whole pixels of the whole cutting.
/// Returns RGBA8888 of that size.
QImage scaledPart(const Cutting& cutting, const QTransform& map, const QSize& size);
