#include "model/CoveragePlane.h"

#include <algorithm>

void CoveragePlane::merge()
{
    if (!m_used) {
        return;
    }
    const int left = std::max(m_firstColumn, 0);
    const int top = std::max(m_top, 0);
    const int rightEnd = std::min(m_firstColumn + m_columns, m_canvas.width());
    const int bottom = std::min(m_bottom, m_canvas.height() - 1);
    const uchar* corner = m_coverage + (top - m_top) * m_columns + left - m_firstColumn;
    m_canvas.merge(m_merge == Merge::Raise ? m_loops.raiseAlpha : m_loops.clearAlpha,
                   QRect(left, top, rightEnd - left, bottom + 1 - top), corner, m_columns);
    m_canvas.touch(std::max(m_left, 0), top, std::min(m_right, m_canvas.width() - 1), bottom);
}
