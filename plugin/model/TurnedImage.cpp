#include "model/TurnedImage.h"

#include "model/Canvas.h"
#include "model/Cutting.h"
#include "model/RowBands.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace {

double growthAcross(const QTransform& map)
{
    return std::hypot(map.m11(), map.m12());
}

double growthDown(const QTransform& map)
{
    return std::hypot(map.m21(), map.m22());
}

/// How many of the cutting's pixels a painter may read, or blend an edge over, beside those that it shows.
int reach(double growth)
{
    return static_cast<int>(std::min(2 + std::ceil(2 / growth), 3.0 * kCanvasSize));
}

QRect grownByReach(const QRect& rect, const QTransform& map)
{
    const int across = reach(growthAcross(map));
    const int down = reach(growthDown(map));
    return rect.adjusted(-across, -down, across, down);
}

/// The pixels of the cutting that are seen in part, and their neighbours.
QRect seenIn(const QRect& part, const Cutting& cutting, const QTransform& map)
{
    const QRectF all(QPointF(0, 0), cutting.size);
    const QRect seen = (map.inverted().mapRect(QRectF(part)) & all).toAlignedRect();
    return grownByReach(seen, map) & grownByReach(cutting.inked(), map) & all.toRect();
}

// All that a painter would do with what it does not show is left out, and cannot be too far off for it.
void paintPart(QImage& made, const Cutting& cutting, const QTransform& map)
{
    const QRect seen = seenIn(made.rect(), cutting, map);
    QPainter painter(&made);
    painter.setRenderHints(QPainter::Antialiasing | QPainter::SmoothPixmapTransform);
    painter.setTransform(map);
    painter.drawImage(seen.topLeft(), cutting.copy(seen));
}

// So large that a pixel is as large as the canvas and more: beyond what painters can compute with.
bool isVast(const QTransform& map)
{
    return std::max(growthAcross(map), growthDown(map)) > kCanvasSize;
}

/// Reads a cutting anywhere between its pixels.
class Sampler {
public:
    explicit Sampler(const Cutting& cutting)
        : m_cutting(cutting), m_image(cutting.image.convertToFormat(QImage::Format_RGBA8888_Premultiplied))
    {}

    // Bilinear; beyond the middle of the outermost pixels these go on.
    void read(const QPointF& at, uchar* made) const
    {
        const QSize& size = m_cutting.size;
        if (!QRectF(QPointF(0, 0), size).contains(at)) {
            return;
        }
        const double x = std::min(std::max(at.x() - 0.5, 0.0), size.width() - 1.0);
        const double y = std::min(std::max(at.y() - 0.5, 0.0), size.height() - 1.0);
        const int left = static_cast<int>(x);
        const int top = static_cast<int>(y);
        const uchar* const pixels[] = {pixel(left, top), pixel(left + 1, top), pixel(left, top + 1),
                                       pixel(left + 1, top + 1)};
        const double right = x - left;
        const double lower = y - top;
        for (int channel = 0; channel < 4; ++channel) {
            const double above = pixels[0][channel] * (1 - right) + pixels[1][channel] * right;
            const double below = pixels[2][channel] * (1 - right) + pixels[3][channel] * right;
            made[channel] = static_cast<uchar>(above * (1 - lower) + below * lower + 0.5);
        }
    }

private:
    const uchar* pixel(int x, int y) const
    {
        static const uchar kNone[4] = {};
        const QPoint inImage = QPoint(x, y) - m_cutting.at;
        return m_image.rect().contains(inImage) ? m_image.constScanLine(inImage.y()) + 4 * inImage.x() : kNone;
    }

    const Cutting& m_cutting;
    const QImage m_image;
};

QImage sampledPart(const Cutting& cutting, const QTransform& map, const QSize& size)
{
    QImage made(size, QImage::Format_RGBA8888_Premultiplied);
    made.fill(Qt::transparent);
    const Sampler sampler(cutting);
    const QTransform inverse = map.inverted();
    uchar* const bits = made.bits();
    const int stride = made.bytesPerLine();
    forRowBands(RowSpan{0, size.height()}, size.width() * size.height(), [&](int first, int end) {
        for (int y = first; y < end; ++y) {
            for (int x = 0; x < size.width(); ++x) {
                sampler.read(inverse.map(QPointF(x + 0.5, y + 0.5)), bits + y * stride + 4 * x);
            }
        }
    });
    return made.convertToFormat(QImage::Format_RGBA8888);
}

}  // namespace

QImage turnedPart(const Cutting& cutting, const QTransform& map, const QSize& size)
{
    if (isVast(map)) {
        return sampledPart(cutting, map, size);
    }
    QImage made(size, QImage::Format_RGBA8888);
    made.fill(Qt::transparent);
    paintPart(made, cutting, map);
    return made;
}
