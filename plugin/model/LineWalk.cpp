#include "model/LineWalk.h"

#include <algorithm>

namespace {

// Keeps products of two distances within 64 bits; nothing that far off is seen anyway.
constexpr int kFarthest = 1 << 30;

QPoint held(const QPoint& p)
{
    return QPoint(std::min(std::max(p.x(), -kFarthest), kFarthest), std::min(std::max(p.y(), -kFarthest), kFarthest));
}

// start, direction: where step 0 is, and +1 or -1. last: the last step of the walk. side: of the canvas.
StepRange stepsNear(qint64 start, int direction, qint64 last, int side, qint64 margin)
{
    const qint64 toLow = -margin - start;
    const qint64 toHigh = side - 1 + margin - start;
    const qint64 enter = direction > 0 ? toLow : -toHigh;
    const qint64 leave = direction > 0 ? toHigh : -toLow;
    return {std::max<qint64>(enter, 0), std::min<qint64>(leave, last) + 1};
}

}  // namespace

BresenhamWalk::BresenhamWalk(const QPoint& from, const QPoint& to) : m_from(held(from))
{
    const QPoint end = held(to);
    m_dx = std::llabs(qint64(end.x()) - m_from.x());
    m_dy = std::llabs(qint64(end.y()) - m_from.y());
    m_stepX = end.x() >= m_from.x() ? 1 : -1;
    m_stepY = end.y() >= m_from.y() ? 1 : -1;
    m_major = std::max(m_dx, m_dy);
}

StepRange BresenhamWalk::steps(int width, int height, int margin) const
{
    return isSteep() ? stepsNear(m_from.y(), m_stepY, m_major, height, margin)
                     : stepsNear(m_from.x(), m_stepX, m_major, width, margin);
}

BresenhamWalk::Position BresenhamWalk::at(qint64 step) const
{
    const qint64 minor = minorSteps(step);
    const qint64 alongX = isSteep() ? minor : step;
    const qint64 alongY = isSteep() ? step : minor;
    return {m_from.x() + m_stepX * alongX, m_from.y() + m_stepY * alongY, alongX + alongY};
}

// The error falls by the shorter distance at each step, and a step across lifts it by the longer one before it would
// turn negative; solved for the number of steps across.
qint64 BresenhamWalk::minorSteps(qint64 step) const
{
    const qint64 fallen = step * std::min(m_dx, m_dy) - m_major / 2;
    return fallen > 0 ? (fallen + m_major - 1) / m_major : 0;
}

WuWalk::WuWalk(const QPoint& from, float opacityFrom, const QPoint& to, float opacityTo)
    : m_from(held(from)), m_to(held(to)), m_opacityFrom(opacityFrom), m_opacityTo(opacityTo)
{
    m_steep = std::llabs(qint64(m_to.y()) - m_from.y()) > std::llabs(qint64(m_to.x()) - m_from.x());
    if (m_steep) {
        m_from = QPoint(m_from.y(), m_from.x());
        m_to = QPoint(m_to.y(), m_to.x());
    }
    // Put in order, each end keeps its own opacity.
    if (m_from.x() > m_to.x()) {
        std::swap(m_from, m_to);
        std::swap(m_opacityFrom, m_opacityTo);
    }
    m_gradient = steps() == 0 ? 0.0 : double(qint64(m_to.y()) - m_from.y()) / double(steps());
    m_length = std::sqrt(1.0 + m_gradient * m_gradient) * double(steps());
}

StepRange WuWalk::visibleSteps(int width, int height, int margin) const
{
    return stepsNear(m_from.x(), 1, steps(), m_steep ? height : width, margin);
}

float WuWalk::opacityAt(double rise, qint64 step) const
{
    const double share = std::sqrt(rise * rise + double(step) * double(step)) / m_length;
    const double opacity = share * double(m_opacityTo - m_opacityFrom) + double(m_opacityFrom);
    return static_cast<float>(std::min(std::max(opacity, 0.0), 1.0));
}
