#include "model/DrawingPainter.h"

#include "model/Canvas.h"
#include "model/RowLoops.h"

namespace {

// A part's rows lie a page apart, where no processor looks ahead by itself: painting would wait for each.
void fetchPart(const QImage& canvas, const QRect& part)
{
    for (int y = part.top(); y <= part.bottom(); ++y) {
        rowLoops().fetch(reinterpret_cast<const quint32*>(canvas.constScanLine(y)) + part.left(), part.width());
    }
}

}  // namespace

void prepareDrawingPainter(QPainter& painter)
{
    painter.setRenderHints(QPainter::Antialiasing | QPainter::HighQualityAntialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

void drawPart(QPainter& painter, const QImage& image, const QRect& area)
{
    const QRect part = area & image.rect();
    if (!part.isEmpty()) {
        if (isMixable(image)) {
            fetchPart(image, part);
        }
        painter.drawImage(part.topLeft(), image, part);
    }
}

QRect paintableArea(const QRect& area)
{
    constexpr int kGroup = 8;
    const QRect inside = area & QRect(0, 0, kCanvasSize, kCanvasSize);
    if (inside.isEmpty()) {
        return QRect();
    }
    const int left = inside.left() / kGroup * kGroup;
    const int end = (inside.left() + inside.width() + kGroup - 1) / kGroup * kGroup;
    return QRect(left, inside.top(), end - left, inside.height());
}
