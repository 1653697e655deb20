#include "model/StrokeRaster.h"

#include "model/DabMask.h"
#include "model/LineWalk.h"

#include <algorithm>

namespace {

constexpr int kAlpha = 3;  // of the four bytes of an RGBA8888 pixel
constexpr int kBytesPerPixel = 4;
// A brush below this width is drawn with a dab one pixel larger and weaker, or its thin cone would break up.
constexpr int kNarrowBrush = 20;
constexpr float kNarrowStrength = 0.4f;

// Writes alpha bytes of a canvas, and remembers where.
class AlphaTarget {
public:
    explicit AlphaTarget(QImage& canvas)
        : m_bits(canvas.bits()), m_stride(canvas.bytesPerLine()), m_width(canvas.width()), m_height(canvas.height())
    {}

    int width() const { return m_width; }
    int height() const { return m_height; }
    const QRect& touched() const { return m_touched; }

    void raise(qint64 x, qint64 y, uchar alpha)
    {
        if (uchar* byte = at(x, y)) {
            *byte = std::max(*byte, alpha);
        }
    }
    void erase(qint64 x, qint64 y)
    {
        if (uchar* byte = at(x, y)) {
            *byte = 0;
        }
    }
    /// Stamps a dab with its centre on a pixel: raises alpha to int(mask * weight), never lowers it.
    /// weight: 0..1, the Wu coverage of the pixel.
    void stamp(const DabMask& dab, qint64 x, qint64 y, float weight)
    {
        if (weight == 1.0f) {
            forEachRow(dab, x, y, [](uchar* alpha, const uchar* mask, int count) {
                for (int i = 0; i < count; ++i, alpha += kBytesPerPixel) {
                    *alpha = std::max(*alpha, mask[i]);
                }
            });
        } else {
            forEachRow(dab, x, y, [weight](uchar* alpha, const uchar* mask, int count) {
                for (int i = 0; i < count; ++i, alpha += kBytesPerPixel) {
                    *alpha = std::max(*alpha, static_cast<uchar>(static_cast<float>(mask[i]) * weight));
                }
            });
        }
    }
    /// Sets alpha to 0 wherever the mask is not.
    void punch(const DabMask& dab, qint64 x, qint64 y)
    {
        forEachRow(dab, x, y, [](uchar* alpha, const uchar* mask, int count) {
            for (int i = 0; i < count; ++i, alpha += kBytesPerPixel) {
                *alpha = mask[i] ? 0 : *alpha;
            }
        });
    }

private:
    uchar* at(qint64 x, qint64 y)
    {
        if (x < 0 || y < 0 || x >= m_width || y >= m_height) {
            return nullptr;
        }
        m_touched |= QRect(static_cast<int>(x), static_cast<int>(y), 1, 1);
        return alphaAt(static_cast<int>(x), static_cast<int>(y));
    }
    uchar* alphaAt(int x, int y) { return m_bits + y * m_stride + x * kBytesPerPixel + kAlpha; }

    // Hands over the part of each mask row that lies on the canvas.
    template <class RowFunction>
    void forEachRow(const DabMask& dab, qint64 x, qint64 y, RowFunction apply)
    {
        const int reach = dab.reach();
        if (x + reach < 0 || y + reach < 0 || x - reach >= m_width || y - reach >= m_height) {
            return;
        }
        const QPoint centre(static_cast<int>(x), static_cast<int>(y));
        const QRect box = dabBox(dab, centre) & QRect(0, 0, m_width, m_height);
        const int maskX = box.left() - centre.x() + dab.centre();
        const int maskY = box.top() - centre.y() + dab.centre();
        for (int row = 0; row < box.height(); ++row) {
            apply(alphaAt(box.left(), box.top() + row), dab.row(maskY + row) + maskX, box.width());
        }
        m_touched |= box;
    }

    // The table may end before the reach does; that outermost ring is empty.
    static QRect dabBox(const DabMask& dab, const QPoint& centre)
    {
        const int before = dab.reach();
        const int after = std::min(dab.reach(), DabMask::kSide - 1 - dab.centre());
        return QRect(centre - QPoint(before, before), centre + QPoint(after, after));
    }

    uchar* const m_bits;
    const int m_stride;
    const int m_width;
    const int m_height;
    QRect m_touched;
};

// The opacity grows evenly with each step in x or y.
float opacityAlong(const BresenhamWalk& walk, qint64 axisSteps, float from, float to)
{
    return walk.axisSteps() == 0
             ? from
             : static_cast<float>(from + double(to - from) * double(axisSteps) / double(walk.axisSteps()));
}

void drawThinLine(AlphaTarget& target, const BresenhamWalk& walk, const StrokePoint& p, const StrokePoint& q,
                  bool erasing)
{
    const StepRange range = walk.steps(target.width(), target.height(), 0);
    for (qint64 step = range.first; step < range.end; ++step) {
        const BresenhamWalk::Position at = walk.at(step);
        if (erasing) {
            target.erase(at.x, at.y);
        } else {
            target.raise(at.x, at.y, alphaOf(opacityAlong(walk, at.axisSteps, p.opacity, q.opacity)));
        }
    }
}

void drawThickLine(AlphaTarget& target, const BresenhamWalk& walk, const StrokePoint& p, const StrokePoint& q,
                   bool erasing)
{
    const float radius = std::min(static_cast<float>(p.width) * 0.5f, DabMask::kLargestRadius);
    const int spacing = std::max(static_cast<int>(static_cast<float>(p.width) * 0.1f), 1);
    DabMask dab;
    float built = -1.0f;
    const StepRange range = walk.steps(target.width(), target.height(), static_cast<int>(radius) + 1);
    // The first stamp is at the segment's start, seen or not.
    for (qint64 step = (range.first + spacing - 1) / spacing * spacing; step < range.end; step += spacing) {
        const BresenhamWalk::Position at = walk.at(step);
        // How strongly to erase is not asked: what a dab covers is gone.
        const float opacity = erasing ? 1.0f : opacityAlong(walk, at.axisSteps, p.opacity, q.opacity);
        if (opacity != built) {
            dab.build(0.0f, radius, opacity, DabMask::Mode::Hard);
            built = opacity;
        }
        if (erasing) {
            target.punch(dab, at.x, at.y);
        } else {
            target.stamp(dab, at.x, at.y, 1.0f);
        }
    }
}

void drawHardSegment(AlphaTarget& target, const StrokePoint& p, const StrokePoint& q, bool erasing)
{
    const BresenhamWalk walk(p.position, q.position);
    if (p.width == 1) {
        drawThinLine(target, walk, p, q, erasing);
    } else {
        drawThickLine(target, walk, p, q, erasing);
    }
}

// One pixel wide. Ends count in full, so that joints do not show as gaps and a click leaves a mark.
void drawFineSegment(AlphaTarget& target, const StrokePoint& p, const StrokePoint& q)
{
    const WuWalk walk(p.position, p.opacity, q.position, q.opacity);
    walk.plot(target.width(), target.height(), 1, 1.0f, [&target](qint64 x, qint64 y, float weight, float opacity) {
        target.raise(x, y, alphaOf(weight * opacity));
    });
}

// Every pixel of the line is a stamp of the soft dab, weighted by the pixel's coverage.
class BrushDab {
public:
    explicit BrushDab(int width)
        : m_strength(width < kNarrowBrush ? kNarrowStrength : 1.0f),
          m_radius(std::min(static_cast<float>(width) * 0.5f + (width < kNarrowBrush ? 1.0f : 0.0f),
                            DabMask::kLargestRadius))
    {}

    int reach() const { return static_cast<int>(m_radius) + 1; }

    const DabMask& at(float opacity)
    {
        if (opacity != m_built) {
            m_mask.build(0.0f, m_radius, opacity * m_strength, DabMask::Mode::Soft);
            m_built = opacity;
        }
        return m_mask;
    }

private:
    const float m_strength;
    const float m_radius;
    float m_built = -1.0f;
    DabMask m_mask;
};

void drawBrushSegment(AlphaTarget& target, const StrokePoint& p, const StrokePoint& q, bool first)
{
    BrushDab dab(p.width);
    if (first) {
        target.stamp(dab.at(p.opacity), p.position.x(), p.position.y(), 1.0f);
    }
    const WuWalk walk(p.position, p.opacity, q.position, q.opacity);
    walk.plot(target.width(), target.height(), dab.reach(), 0.5f,
              [&](qint64 x, qint64 y, float weight, float opacity) { target.stamp(dab.at(opacity), x, y, weight); });
}

}  // namespace

QRect rasteriseStroke(QImage& canvas, const QVector<StrokePoint>& points, int from, ToolType tool)
{
    if (canvas.isNull() || points.size() < 2) {
        return QRect();
    }
    AlphaTarget target(canvas);
    for (int i = std::max(from, 0); i < points.size() - 1; ++i) {
        const StrokePoint& p = points[i];
        const StrokePoint& q = points[i + 1];
        if (p.width < 1) {
            continue;
        }
        if (tool != ToolType::Brush) {
            drawHardSegment(target, p, q, tool == ToolType::Eraser);
        } else if (p.width == 1) {
            drawFineSegment(target, p, q);
        } else {
            drawBrushSegment(target, p, q, i == 0);
        }
    }
    return target.touched();
}
