#include "model/LineWalk.h"

#include <algorithm>

namespace {

// start, direction: where step 0 is, and +1 or -1. last: the last step of the walk. side: of the canvas.
StepRange stepsNear(qint64 start, qint64 direction, qint64 last, int side, qint64 margin)
{
    const qint64 toLow = -margin - start;
    const qint64 toHigh = side - 1 + margin - start;
    const qint64 enter = direction > 0 ? toLow : -toHigh;
    const qint64 leave = direction > 0 ? toHigh : -toLow;
    return {std::max<qint64>(enter, 0), std::min<qint64>(leave, last) + 1};
}

}  // namespace

StepRange BresenhamWalk::steps(const QSize& canvas, int margin) const
{
    return m_steep ? stepsNear(m_y, m_alongY, m_major, canvas.height(), margin)
                   : stepsNear(m_x, m_alongX, m_major, canvas.width(), margin);
}

WuWalk::WuWalk(const LineEnd& from, const LineEnd& to, float endWeight)
    : m_steep(std::llabs(qint64(to.y) - from.y) > std::llabs(qint64(to.x) - from.x)), m_endWeight(endWeight)
{
    // Put in order, each end keeps its own opacity.
    const bool backward = m_steep ? from.y > to.y : from.x > to.x;
    const LineEnd& first = backward ? to : from;
    const LineEnd& last = backward ? from : to;
    m_majorFrom = m_steep ? first.y : first.x;
    m_minorFrom = m_steep ? first.x : first.y;
    m_minorTo = m_steep ? last.x : last.y;
    m_last = qint64(m_steep ? last.y : last.x) - m_majorFrom;
    m_opacityFrom = first.opacity;
    m_opacityTo = last.opacity;
    m_change = m_opacityTo - m_opacityFrom;
    const double rise = double(m_minorTo) - double(m_minorFrom);
    m_gradient = m_last == 0 ? 0.0 : rise / double(m_last);
    m_length = std::sqrt(double(m_last) * double(m_last) + rise * rise);
}

StepRange WuWalk::steps(const QSize& canvas, int margin) const
{
    return stepsNear(m_majorFrom, 1, m_last, m_steep ? canvas.height() : canvas.width(), margin);
}
