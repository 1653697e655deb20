#include "model/StrokeRaster.h"

#include "model/CoveragePlane.h"
#include "model/LineWalk.h"

#include <algorithm>

namespace {

constexpr int kPieceSteps = CoveragePlane::kPieceSide - 1;  // the farther pixel of Wu's pair adds one
// A brush below this width is drawn with a dab one pixel larger and weaker, or its thin cone would break up.
constexpr int kNarrowBrush = 20;
constexpr float kNarrowStrength = 0.4f;

inline LineEnd lineEnd(const StrokePoint& p)
{
    return LineEnd(p.position, p.opacity);
}

// Kept, as all of a stroke mostly shares one.
DabMask& dabOf(float radius, DabMask::Mode mode)
{
    static DabMask s_dab;
    s_dab.setShape(0.0f, radius, mode);
    return s_dab;
}

QPoint pixel(const BresenhamWalk::Place& place)
{
    return QPoint(place.x, place.y);
}

QRect boxOf(const QPoint& a, const QPoint& b)
{
    return QRect(QPoint(std::min(a.x(), b.x()), std::min(a.y(), b.y())),
                 QPoint(std::max(a.x(), b.x()), std::max(a.y(), b.y())));
}

// A straight line comes onto the canvas once and leaves it once.
void drawThinLine(AlphaCanvas& canvas, const StrokePoint& p, const StrokePoint& q, bool erasing)
{
    const BresenhamWalk walk(lineEnd(p), lineEnd(q));
    const StepRange range = walk.steps(canvas.size(), 0);
    BresenhamWalk::Place place = walk.at(range.first);
    qint64 step = range.first;
    for (; step < range.end && !canvas.contains(pixel(place)); ++step) {
        walk.advance(place);
    }
    const QPoint first = pixel(place);
    QPoint last;
    const qint64 entered = step;
    for (; step < range.end && canvas.contains(pixel(place)); ++step, walk.advance(place)) {
        last = pixel(place);
        uchar& alpha = canvas.alpha(last);
        alpha = erasing ? 0 : std::max(alpha, alphaOf(walk.opacity(place)));
    }
    if (step > entered) {
        canvas.touch(std::min(first.x(), last.x()), std::min(first.y(), last.y()), std::max(first.x(), last.x()),
                     std::max(first.y(), last.y()));
    }
}

// Stamps a dab every so many steps of a walk.
class HardDabs {
public:
    HardDabs(AlphaCanvas& canvas, int width, bool erasing)
        : m_plane(canvas, erasing ? CoveragePlane::Merge::Clear : CoveragePlane::Merge::Raise), m_erasing(erasing),
          m_spacing(std::max(static_cast<int>(static_cast<float>(width) * 0.1f), 1)),
          m_dab(dabOf(std::min(static_cast<float>(width) * 0.5f, DabMask::kLargestRadius), DabMask::Mode::Hard))
    {}

    // The first dab is at the start, seen or not.
    void drawLine(const QSize& canvas, const BresenhamWalk& walk)
    {
        const StepRange range = walk.steps(canvas, m_dab.box().right() + 1);
        const int piece = std::max(kPieceSteps / m_spacing, 1) * m_spacing;
        const auto before = static_cast<quint32>(range.first);  // far from overflow, and 64 bits divide slowly
        for (qint64 step = (before + m_spacing - 1) / m_spacing * m_spacing; step < range.end; step += piece) {
            const int left = static_cast<int>(std::min<qint64>(piece, range.end - step)) - 1;
            drawPiece(walk, step, step + left - left % m_spacing);
        }
    }

private:
    void drawPiece(const BresenhamWalk& walk, qint64 firstDab, qint64 lastDab)
    {
        BresenhamWalk::Place place = walk.at(firstDab);
        if (!m_plane.begin(boxOf(pixel(place), pixel(walk.at(lastDab))), m_dab)) {
            return;
        }
        for (qint64 step = firstDab;; step += m_spacing) {
            // How strongly to erase is not asked: what a dab covers is gone.
            m_dab.setOpacity(m_erasing ? 1.0f : walk.opacity(place));
            m_plane.stamp(m_dab, pixel(place));
            if (step == lastDab) {
                break;
            }
            walk.advance(place, m_spacing);
        }
        m_plane.merge();
    }

    CoveragePlane m_plane;
    const bool m_erasing;
    const int m_spacing;  // a tenth of the width
    DabMask& m_dab;
};

void drawThickLine(AlphaCanvas& canvas, const StrokePoint& p, const StrokePoint& q, bool erasing)
{
    HardDabs(canvas, p.width, erasing).drawLine(canvas.size(), BresenhamWalk(lineEnd(p), lineEnd(q)));
}

// One pixel wide. Ends count in full, so that joints do not show as gaps and a click leaves a mark.
void drawFineLine(AlphaCanvas& canvas, const StrokePoint& p, const StrokePoint& q)
{
    const WuWalk walk(lineEnd(p), lineEnd(q), 1.0f);
    const StepRange range = walk.steps(canvas.size(), 0);
    for (qint64 step = range.first; step < range.end; ++step) {
        const WuWalk::Step at = walk.at(step);
        canvas.raise(at.pixel, alphaOf(at.nearWeight * at.opacity));
        if (at.farWeight > 0.0f) {
            canvas.raise(at.pixel + walk.across(), alphaOf(at.farWeight * at.opacity));
        }
    }
}

// Every pixel of the line is a stamp of the soft dab, weighted by the pixel's coverage.
class SoftDabs {
public:
    SoftDabs(AlphaCanvas& canvas, int width)
        : m_plane(canvas, CoveragePlane::Merge::Raise), m_strength(width < kNarrowBrush ? kNarrowStrength : 1.0f),
          m_dab(dabOf(std::min(static_cast<float>(width) * 0.5f + (width < kNarrowBrush ? 1.0f : 0.0f),
                               DabMask::kLargestRadius),
                      DabMask::Mode::Soft))
    {}

    void drawDab(const LineEnd& at)
    {
        const QPoint pixel(at.x, at.y);
        if (m_plane.begin(boxOf(pixel, pixel), m_dab)) {
            m_dab.setOpacity(at.opacity * m_strength);
            m_plane.stamp(m_dab, pixel);
            m_plane.merge();
        }
    }

    void drawLine(const QSize& canvas, const WuWalk& walk)
    {
        const StepRange range = walk.steps(canvas, m_dab.box().right() + 1);
        for (qint64 step = range.first; step < range.end; step += kPieceSteps) {
            drawPiece(walk, {step, std::min(step + kPieceSteps, range.end)});
        }
    }

private:
    void drawPiece(const WuWalk& walk, const StepRange& range)
    {
        if (!m_plane.begin(stampedBox(walk, walk.at(range.first)) | stampedBox(walk, walk.at(range.end - 1)), m_dab)) {
            return;
        }
        for (qint64 step = range.first; step < range.end; ++step) {
            const WuWalk::Step at = walk.at(step);
            m_dab.setOpacity(at.opacity * m_strength);
            m_plane.stampPair(m_dab, at.pixel, at.nearWeight, walk.across(), at.farWeight);
        }
        m_plane.merge();
    }

    static QRect stampedBox(const WuWalk& walk, const WuWalk::Step& at)
    {
        return boxOf(CoveragePlane::counts(at.nearWeight) ? at.pixel : at.pixel + walk.across(),
                     CoveragePlane::counts(at.farWeight) ? at.pixel + walk.across() : at.pixel);
    }

    CoveragePlane m_plane;
    const float m_strength;
    DabMask& m_dab;
};

void drawBrushSegment(AlphaCanvas& canvas, const StrokePoint& p, const StrokePoint& q, bool first)
{
    SoftDabs dabs(canvas, p.width);
    if (first) {
        dabs.drawDab(lineEnd(p));
    }
    dabs.drawLine(canvas.size(), WuWalk(lineEnd(p), lineEnd(q), 0.5f));
}

}  // namespace

QRect rasteriseStroke(QImage& image, const QVector<StrokePoint>& points, int from, ToolType tool)
{
    if (image.isNull() || points.size() < 2) {
        return QRect();
    }
    const bool erasing = tool == ToolType::Eraser;
    AlphaCanvas canvas(image);
    for (int i = std::max(from, 0); i < points.size() - 1; ++i) {
        const StrokePoint& p = points[i];
        const StrokePoint& q = points[i + 1];
        if (p.width < 1) {
            continue;
        }
        if (tool == ToolType::Brush && p.width == 1) {
            drawFineLine(canvas, p, q);
        } else if (tool == ToolType::Brush) {
            drawBrushSegment(canvas, p, q, i == 0);
        } else if (p.width == 1) {
            drawThinLine(canvas, p, q, erasing);
        } else {
            drawThickLine(canvas, p, q, erasing);
        }
    }
    return canvas.touched();
}
