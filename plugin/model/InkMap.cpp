#include "model/InkMap.h"

#include "model/Canvas.h"
#include "model/RowLoops.h"

#include <algorithm>

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
InkMap::InkMap()
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
    }
    return map;
}

const InkMap& InkMap::everywhere()
{
    static const InkMap kAll = [] {
        InkMap all;
        all.m_rows.fill(~quint64(0));
        return all;
    }();
    return kAll;
}

bool InkMap::isEmpty() const
{
    return std::all_of(m_rows.begin(), m_rows.end(), [](quint64 row) { return row == 0; });
}

QRect InkMap::box() const
{
    QRect box;
    for (int y = 0; y < kCanvasSize; ++y) {
        forInkSpans(m_rows[y], [&box, y](int left, int end) { box |= QRect(left, y, end - left, 1); });
    }
    return box;
}

int InkMap::pixels() const
{
    int columns = 0;
    for (const quint64 row : m_rows) {
        columns += static_cast<int>(qPopulationCount(row));
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
}

void InkMap::add(const InkMap& other)
{
    for (int y = 0; y < kCanvasSize; ++y) {
        m_rows[y] |= other.m_rows[y];
    }
}
