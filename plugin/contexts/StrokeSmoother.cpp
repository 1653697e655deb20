#include "contexts/StrokeSmoother.h"

#include "settings/Rounding.h"

#include <cmath>

namespace {

const size_t kHistoryLength = 5;
const int kUnthinnedPoints = 2;    // so that a click leaves its mark
const double kSmallestStep = 0.1;  // of the tool's width

double distance(const StrokeSmoother::Sample& a, const StrokeSmoother::Sample& b)
{
    return std::hypot(double(a.x) - b.x, double(a.y) - b.y);
}

}  // namespace

void StrokeSmoother::clear()
{
    *this = StrokeSmoother();
}

bool StrokeSmoother::accept(Sample& sample, int width)
{
    const bool canThin = m_pointCount >= kUnthinnedPoints;
    if (canThin && sample.x == m_lastPoint.x && sample.y == m_lastPoint.y) {
        return false;
    }
    if (m_history.size() == kHistoryLength) {
        m_history.pop_back();
    }
    m_history.insert(m_history.begin(), sample);
    const Sample smoothed = mean();
    if (canThin && distance(smoothed, m_lastPoint) < width * kSmallestStep) {
        m_history.erase(m_history.begin());
        return false;
    }
    ++m_pointCount;
    m_lastPoint = smoothed;
    sample = smoothed;
    return true;
}

void StrokeSmoother::weigh(float pressure)
{
    for (Sample& sample : m_history) {
        sample.opacity *= pressure;
    }
}

void StrokeSmoother::setOpacity(float opacity)
{
    for (Sample& sample : m_history) {
        sample.opacity = opacity;
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
        x += weight * m_history[i].x;
        y += weight * m_history[i].y;
        opacity += weight * double(m_history[i].opacity);
    }
    const double sum = double(count * (count + 1)) / 2.0;
    return {roundedHalfAwayFromZero(x / sum), roundedHalfAwayFromZero(y / sum), float(opacity / sum)};
}
