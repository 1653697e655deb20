#include "app/RateMeter.h"

namespace app {

namespace {

constexpr double kWindow = 1000;   // ms
constexpr double kShortest = 250;  // ms; what is measured over less says nothing

}  // namespace

void RateMeter::addFrame(double clock)
{
    m_shown.push_back(clock);
    // A frame that took longer than all of it still has the one before it to be measured from.
    while (m_shown.size() > 2 && m_shown.front() < clock - kWindow) {
        m_shown.pop_front();
    }
}

double RateMeter::rate() const
{
    if (m_shown.empty()) {
        return 0;
    }
    const double span = m_shown.back() - m_shown.front();
    return span < kShortest ? 0 : 1000 * double(m_shown.size() - 1) / span;
}

}  // namespace app
