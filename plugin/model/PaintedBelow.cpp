#include "model/PaintedBelow.h"

#include "model/Canvas.h"
#include "model/DrawingPainter.h"

namespace {

constexpr int kBandHeight = 64;
constexpr int kBands = kCanvasSize / kBandHeight;

}  // namespace

void PaintedBelow::copyTo(QImage& canvas, const QRect& area, const std::vector<quint64>& madeOf, const Paint& paint)
{
    if (m_image.isNull()) {
        m_image = blankCanvas();
    }
    if (madeOf != m_madeOf || m_isPainted.empty()) {
        m_madeOf = madeOf;
        m_isPainted.assign(kBands, false);
    }
    for (int band = area.top() / kBandHeight; band <= area.bottom() / kBandHeight; ++band) {
        if (!m_isPainted[static_cast<size_t>(band)]) {
            paintBand(band, paint);
        }
    }
    copyRect(canvas, m_image, area);
}

// Of full width, as painting everything would be: see paintableArea.
void PaintedBelow::paintBand(int band, const Paint& paint)
{
    const QRect area(0, band * kBandHeight, kCanvasSize, kBandHeight);
    clearRect(m_image, area);
    QPainter painter(&m_image);
    prepareDrawingPainter(painter);
    paint(painter, area);
    m_isPainted[static_cast<size_t>(band)] = true;
}
