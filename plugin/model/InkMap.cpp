#include "model/InkMap.h"

#include "model/Canvas.h"
#include "model/RowLoops.h"

namespace {

constexpr int kColumns = kCanvasSize / InkMap::kColumnWidth;
static_assert(kColumns == 64, "a row of columns is held in 64 bits");

// Bits of the columns that the pixels from left to end - 1 lie in.
quint64 columnsOf(int left, int end)
{
    const int first = left / InkMap::kColumnWidth;
    const int last = (end - 1) / InkMap::kColumnWidth;
    return (~quint64(0) >> (kColumns - 1 - last)) & (~quint64(0) << first);
}

}  // namespace

constexpr int InkMap::kColumnWidth;

// Every picture has a map, and of most of them the ink is never asked for: these share one.
InkMap::InkMap() : m_span{0, 0}
{
    static const QVector<quint64> kNoInk(kCanvasSize, 0);
    m_rows = kNoInk;
}

InkMap InkMap::of(const QImage& canvas)
{
    const RowLoops& loops = rowLoops();
    InkMap map;
    for (int y = 0; y < kCanvasSize; ++y) {
        map.m_rows[y] = loops.inkColumns(reinterpret_cast<const quint32*>(canvas.constScanLine(y)), kColumns);
        map.m_span = map.m_span | RowSpan{y, map.m_rows[y] ? y + 1 : y};
    }
    return map;
}

const InkMap& InkMap::everywhere()
{
    static const InkMap kAll = [] {
        InkMap all;
        all.add(QRect(0, 0, kCanvasSize, kCanvasSize));
        return all;
    }();
    return kAll;
}

QRect InkMap::box() const
{
    quint64 columns = 0;
    for (int y = m_span.first; y < m_span.end; ++y) {
        columns |= m_rows[y];
    }
    QRect box;
    forInkSpans(columns, [&](int left, int end) { box |= QRect(left, m_span.first, end - left, m_span.length()); });
    return box;
}

int InkMap::pixels() const
{
    int columns = 0;
    for (int y = m_span.first; y < m_span.end; ++y) {
        columns += static_cast<int>(qPopulationCount(m_rows[y]));
    }
    return columns * kColumnWidth;
}

void InkMap::add(const QRect& area)
{
    const QRect inside = area & QRect(0, 0, kCanvasSize, kCanvasSize);
    if (inside.isEmpty()) {
        return;
    }
    const quint64 columns = columnsOf(inside.left(), inside.left() + inside.width());
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        m_rows[y] |= columns;
    }
    m_span = m_span | RowSpan{inside.top(), inside.top() + inside.height()};
}

void InkMap::add(const InkMap& other)
{
    for (int y = other.m_span.first; y < other.m_span.end; ++y) {
        m_rows[y] |= other.m_rows[y];
    }
    m_span = m_span | other.m_span;
}
