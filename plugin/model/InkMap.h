#pragma once

#include <QImage>
#include <QRect>
#include <QVector>

/// Where a canvas may have ink: for every row, which columns of 32 pixels hold a pixel that is not fully transparent.
/// Empty parts of a drawing are then not even read. Copies share their rows.
class InkMap {
public:
    static constexpr int kColumnWidth = 32;

    InkMap();                                ///< no ink
    static InkMap of(const QImage& canvas);  ///< RGBA8888 or ARGB32, of canvas size

    bool isEmpty() const;
    quint32 row(int y) const { return m_rows[y]; }  ///< bit i: columns from 32 * i to 32 * i + 31
    QRect box() const;                              ///< null when there is no ink

    void add(const QRect& area);  ///< everything in it may be ink now; what lies beyond the canvas is left out
    void add(const InkMap& other);

private:
    QVector<quint32> m_rows;
};

/// Calls span(left, end) for each run of columns in a row of an ink map, in pixels and half open.
template <class Span>
void forInkSpans(quint32 columns, Span span)
{
    for (int column = 0; columns >> column != 0;) {
        if (!(columns >> column & 1u)) {
            ++column;
            continue;
        }
        const int first = column;
        while (column < 32 && (columns >> column & 1u)) {
            ++column;
        }
        span(first * InkMap::kColumnWidth, column * InkMap::kColumnWidth);
        if (column == 32) {
            return;
        }
    }
}
