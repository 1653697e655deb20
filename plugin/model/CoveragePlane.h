#pragma once

#include "model/AlphaCanvas.h"
#include "model/DabMask.h"
#include "model/WeightFactors.h"

#include <cstring>

/// Stamps dabs on a canvas, a short piece of a line at a time: the stamps of a piece go into a small plane of coverage,
/// one byte a pixel and larger than the piece needs, so that they are never clipped; from there they go to the canvas
/// at once. As the strongest counts, neither their order matters nor where a piece ends.
class CoveragePlane {
public:
    static constexpr int kPieceSide = 33;

    enum class Merge {
        Raise,  ///< alpha is at least the coverage
        Clear   ///< alpha is 0 wherever anything is covered
    };

    CoveragePlane(AlphaCanvas& canvas, Merge merge)
        : m_canvas(canvas), m_merge(merge), m_loops(coverageLoops()), m_factors(WeightFactors::instance())
    {}

    /// Begins an empty piece. stamped: box of the pixels to be stamped, at most kPieceSide wide and high. False when
    /// all of it is off the canvas; then there is nothing to stamp or merge.
    bool begin(const QRect& stamped, const DabMask& dab)
    {
        m_left = stamped.left() + dab.box().left();
        m_top = stamped.top() + dab.box().top();
        m_right = stamped.right() + dab.box().right();
        m_bottom = stamped.bottom() + dab.box().bottom();
        if (m_right < 0 || m_bottom < 0 || m_left >= m_canvas.width() || m_top >= m_canvas.height()) {
            return false;
        }
        m_firstColumn = m_left & -kGroup;
        m_columns = (m_right | (kGroup - 1)) + 1 - m_firstColumn;
        std::memset(m_coverage, 0, static_cast<size_t>(m_columns * (m_bottom + 1 - m_top)));
        m_used = false;
        return true;
    }
    /// Every byte of the dab counts as int(byte * weight). weight: 0..1.
    void stamp(DabMask& dab, const QPoint& pixel, float weight = 1.0f)
    {
        if (dab.isEmpty() || !counts(weight)) {
            return;
        }
        m_used = true;
        if (weight == 1.0f) {
            m_loops.stamp(at(dab, pixel), m_columns, &dab.bytes());
        } else {
            m_loops.stampWeighted(at(dab, pixel), m_columns, &dab.words(), m_factors.of(weight));
        }
    }
    /// Two such stamps, the second one pixel to the right of the first or below it.
    void stampPair(DabMask& dab, const QPoint& pixel, float weight, const QPoint& next, float nextWeight)
    {
        if (!counts(weight) || !counts(nextWeight)) {
            stamp(dab, pixel, weight);
            stamp(dab, pixel + next, nextWeight);
        } else if (!dab.isEmpty()) {
            m_used = true;
            const MaskPair pair = {m_factors.of(weight), m_factors.of(nextWeight), next.x(), next.y()};
            m_loops.stampPair(at(dab, pixel), m_columns, &dab.words(), &pair);
        }
    }
    void merge();

    /// Whether a weight is enough for a stamp to leave anything.
    static bool counts(float weight) { return weight * 255.0f >= 1.0f; }

private:
    // Pieces are merged in whole groups of pixels, or the loops would go through the rest of a row one by one.
    static constexpr int kGroup = 16;
    static constexpr int kLargestDab = 2 * static_cast<int>(DabMask::kLargestRadius) + 1;
    static constexpr int kRows = kPieceSide + kLargestDab - 1;
    static constexpr int kColumns = (kRows / kGroup + 2) * kGroup;
    // A row of a stamp goes on into the next row, with zeros; the last row needs one more.
    static constexpr int kBytes = kColumns * (kRows + 1);

    uchar* at(const DabMask& dab, const QPoint& pixel)
    {
        const int row = pixel.y() + dab.box().top() - m_top;
        return m_coverage + row * m_columns + pixel.x() + dab.box().left() - m_firstColumn;
    }

    AlphaCanvas& m_canvas;
    const Merge m_merge;
    const CoverageLoops& m_loops;
    const WeightFactors& m_factors;

    // What the piece may cover, in canvas pixels; the plane begins at its top and has some more columns.
    int m_left = 0;
    int m_top = 0;
    int m_right = 0;
    int m_bottom = 0;
    int m_firstColumn = 0;
    int m_columns = 0;
    bool m_used = false;
    uchar m_coverage[kBytes];
};
