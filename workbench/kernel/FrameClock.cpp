#include "kernel/FrameClock.h"

#include <cmath>

namespace kernel {

namespace {

constexpr double kTolerance = 1e-6;  // of a frame; durations add up to a little more or less

}  // namespace

int FrameClock::framesDue(double now, double duration, Late late)
{
    const double shown = now - m_shownAt;
    if (shown < duration * (1 - kTolerance)) {
        return 0;
    }
    if (late == Late::ShowAll || shown > duration + kLongestDelay) {
        m_shownAt = shown < 2 * duration ? m_shownAt + duration : now;
        return 1;
    }
    const int due = int(std::floor(shown / duration + kTolerance));
    m_shownAt += due * duration;
    return due;
}

}  // namespace kernel
