#pragma once

#include "model/RowSpan.h"

#include <QImage>
#include <QRect>
#include <QVector>
#include <QtAlgorithms>

/// Where a canvas may have ink: for every row, which columns of 16 pixels hold a pixel that is not fully transparent.
/// Empty parts of a drawing are then not even read. Copies share their rows.
class InkMap {
public:
    static constexpr int kColumnWidth = 16;

    InkMap();                                ///< no ink
    static InkMap of(const QImage& canvas);  ///< RGBA8888 or ARGB32, of canvas size
    static const InkMap& everywhere();

    bool isEmpty() const { return m_span.isEmpty(); }
    /// Bit i: the pixels from 16 * i to 16 * i + 15.
    quint64 row(int y) const { return m_rows[y]; }
    RowSpan rows() const { return m_span; }  ///< from the first with ink to the last
    QRect box() const;                       ///< null when there is no ink
    int pixels() const;                      ///< in all the columns

    void add(const QRect& area);  ///< everything in it may be ink now; what lies beyond the canvas is left out
    void add(const InkMap& other);

private:
    QVector<quint64> m_rows;
    RowSpan m_span;
};

/// Calls span(left, end) for each run of columns in a row of an ink map, in pixels and half open.
template <class Span>
void forInkSpans(quint64 columns, Span span)
{
    int at = 0;
    while (columns != 0) {
        const int gap = static_cast<int>(qCountTrailingZeroBits(columns));
        columns >>= gap;
        const int run = ~columns == 0 ? 64 : static_cast<int>(qCountTrailingZeroBits(~columns));
        columns = run == 64 ? 0 : columns >> run;
        span((at + gap) * InkMap::kColumnWidth, (at + gap + run) * InkMap::kColumnWidth);
        at += gap + run;
    }
}
