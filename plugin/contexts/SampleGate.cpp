#include "contexts/SampleGate.h"

void SampleGate::close()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_open = false;
}

void SampleGate::moveView(const QRect& view)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_view = view;
}

void SampleGate::setOptions(const SamplingOptions& options)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_options = options;
}

SampleTime SampleGate::takeTime()
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    if (m_times.empty()) {
        return SampleClock::now();
    }
    const SampleTime time = m_times.front();
    m_times.pop_front();
    return time;
}
