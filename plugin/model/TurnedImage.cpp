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

// The few pixels that are seen reach so far beyond the canvas that painters get slow, and in the end lost.
bool isVast(const QTransform& map)
{
    constexpr double kFarGrowth = 256;
    return std::max(growthAcross(map), growthDown(map)) > kFarGrowth;
}

/// Reads a cutting anywhere between the middles of its pixels; beyond those of the outermost ones these go on.
class Sampler {
public:
    explicit Sampler(const Cutting& cutting)
        : m_cutting(cutting), m_width(cutting.size.width()), m_height(cutting.size.height())
    {}

    quint32 read(double x, double y)
    {
        if (x < 0 || x >= m_width || y < 0 || y >= m_height) {
            return 0;
        }
        const int fromLeft = stepsFromFirst(x, m_width);
        const int fromTop = stepsFromFirst(y, m_height);
        lookAt(fromLeft / kSteps, fromTop / kSteps);
        const int right = fromLeft % kSteps;
        return mixed(mixed(m_near[0], m_near[1], right), mixed(m_near[2], m_near[3], right), fromTop % kSteps);
    }

private:
    static constexpr int kSteps = 256;  // from one pixel to the next

    // From the middle of the first pixel, and to that of the last.
    static int stepsFromFirst(double at, int length)
    {
        return qBound(0, static_cast<int>(at * kSteps) - kSteps / 2, (length - 1) * kSteps);
    }

    // Two channels at once.
    static quint32 mixed(quint32 one, quint32 other, int step)
    {
        constexpr quint32 kEven = 0x00ff00ff;
        constexpr quint32 kHalf = 0x00800080;
        const auto share = static_cast<quint32>(step);
        const quint32 rest = kSteps - share;
        const quint32 even = (one & kEven) * rest + (other & kEven) * share + kHalf;
        const quint32 odd = ((one >> 8) & kEven) * rest + ((other >> 8) & kEven) * share + kHalf;
        return ((even >> 8) & kEven) | (odd & ~kEven);
    }

    // Many readings in a row are between the same four.
    void lookAt(int left, int top)
    {
        if (left == m_left && top == m_top) {
            return;
        }
        m_left = left;
        m_top = top;
        for (int i = 0; i < 4; ++i) {
            const QPoint pixel = QPoint(left + i % 2, top + i / 2) - m_cutting.at;
            m_near[i] = m_cutting.image.rect().contains(pixel) ? m_cutting.image.pixel(pixel) : 0;
        }
    }

    const Cutting& m_cutting;  // ARGB32, premultiplied
    const int m_width, m_height;
    int m_left = -1, m_top = -1;  // of the four that were looked at last
    quint32 m_near[4] = {};
};

QImage sampledPart(const Cutting& cutting, const QTransform& map, const QSize& size)
{
    QImage made(size, QImage::Format_ARGB32_Premultiplied);
    const QTransform inverse = map.inverted();
    Cutting seen = cutting.within(seenIn(made.rect(), cutting, map));
    seen.image = std::move(seen.image).convertToFormat(made.format());
    uchar* const bits = made.bits();
    const int stride = made.bytesPerLine();
    forRowBands(RowSpan{0, size.height()}, size.width() * size.height(), [&](int first, int end) {
        Sampler sampler(seen);
        for (int y = first; y < end; ++y) {
            auto* const row = reinterpret_cast<quint32*>(bits + y * stride);
            const QPointF start = inverse.map(QPointF(0.5, y + 0.5));
            for (int x = 0; x < size.width(); ++x) {
                row[x] = sampler.read(start.x() + x * inverse.m11(), start.y() + x * inverse.m12());
            }
        }
    });
    return std::move(made).convertToFormat(QImage::Format_RGBA8888);
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
