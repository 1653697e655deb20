#include "model/DrawingPainter.h"

void prepareDrawingPainter(QPainter& painter)
{
    painter.setRenderHints(QPainter::Antialiasing | QPainter::HighQualityAntialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

void drawPart(QPainter& painter, const QImage& image, const QRect& area)
{
    const QRect part = area & image.rect();
    if (!part.isEmpty()) {
        painter.drawImage(part.topLeft(), image, part);
    }
}
