#pragma once

#include <QPainter>

/// Sets what every painter of drawings has in common.
void prepareDrawingPainter(QPainter& painter);

/// Draws the part of an image that lies in area, where it would be were the whole image drawn at (0, 0). The image may
/// be smaller than the area, or null. Qt blends groups of 8 pixels in another way than single ones: where the area is
/// made of whole columns of an ink map, the groups are where they always are, and painting a part gives the same bytes
/// as painting everything.
void drawPart(QPainter& painter, const QImage& image, const QRect& area);
