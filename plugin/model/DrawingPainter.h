#pragma once

#include <QPainter>

/// Sets what every painter of drawings has in common.
void prepareDrawingPainter(QPainter& painter);

/// Draws the part of an image that lies in area, where it would be were the whole image drawn at (0, 0). The image may
/// be smaller than the area, or null.
void drawPart(QPainter& painter, const QImage& image, const QRect& area);

/// The area made wider until its left edge and width are multiples of 8, and held within a canvas. Qt blends whole
/// groups of pixels in another way than single ones; with the groups where they always are, painting a part gives the
/// same bytes as painting everything.
QRect paintableArea(const QRect& area);
