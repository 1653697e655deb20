#include "contexts/StrokeSmoother.h"

#include "settings/Rounding.h"

#include <cmath>

namespace {

const size_t kHistoryLength = 5;
const double kSmallestStep = 0.1;  // of the tool's width

}  // namespace

void StrokeSmoother::clear()
{
    m_history.clear();
}

bool StrokeSmoother::accept(StrokePoint& point, const QVector<StrokePoint>& stroke)
{
    const bool canThin = stroke.size() >= 2;
    if (canThin && stroke.last().position == point.position) {
        return false;
    }
    if (m_history.size() == kHistoryLength) {
        m_history.pop_back();
    }
    m_history.insert(m_history.begin(), {point.position, point.opacity});

    const Sample smoothed = mean();
    if (canThin) {
        const QPoint step = smoothed.position - stroke.last().position;
        if (std::hypot(step.x(), step.y()) < point.width * kSmallestStep) {
            m_history.erase(m_history.begin());
            return false;
        }
    }
    point.position = smoothed.position;
    point.opacity = smoothed.opacity;
    return true;
}

void StrokeSmoother::weigh(float pressure)
{
    for (Sample& sample : m_history) {
        sample.opacity *= pressure;
    }
}

StrokeSmoother::Sample StrokeSmoother::mean() const
{
    const size_t count = m_history.size();
    double x = 0.0;
    double y = 0.0;
    double opacity = 0.0;
    for (size_t i = 0; i < count; ++i) {
        const double weight = double(count - i);
        x += weight * m_history[i].position.x();
        y += weight * m_history[i].position.y();
        opacity += weight * double(m_history[i].opacity);
    }
    const double sum = double(count * (count + 1)) / 2.0;
    return {QPoint(roundedHalfAwayFromZero(x / sum), roundedHalfAwayFromZero(y / sum)), float(opacity / sum)};
}
