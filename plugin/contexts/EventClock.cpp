#include "contexts/EventClock.h"

#include <algorithm>

namespace {

/// The coarsest clock a window system stamps with ticks every 15.6 ms, and a stamp is that of the tick before.
const std::chrono::milliseconds kTick(16);

std::chrono::milliseconds sinceZero(unsigned long stamp)
{
    return std::chrono::milliseconds(static_cast<long long>(stamp));
}

}  // namespace

void EventClock::restart()
{
    *this = EventClock();
}

void EventClock::note(unsigned long stamp, SampleTime now)
{
    m_isUsable = m_isUsable && stamp > 0 && stamp >= m_lastStamp;
    const SampleTime zero = now - sinceZero(stamp);
    m_zero = m_hasStamp ? std::min(m_zero, zero) : zero;
    m_hasStamp = true;
    m_lastStamp = stamp;
}

SampleTime EventClock::latest(unsigned long stamp) const
{
    return isKnown() ? m_zero + sinceZero(stamp) + kTick : SampleTime::max();
}

SampleTime EventClock::likely(unsigned long stamp) const
{
    return isKnown() ? m_zero + sinceZero(stamp) : SampleTime::min();
}
