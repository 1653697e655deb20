#include "kernel/IdleQueue.h"

#include "kernel/Session.h"

namespace kernel {

void IdleQueue::post(std::function<void()> work)
{
    std::function<void()> wake;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (m_work.empty())
            wake = m_wake;
        m_work.push_back(std::move(work));
    }
    if (wake)
        wake();
}

bool IdleQueue::isEmpty() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return m_work.empty();
}

bool IdleQueue::runPass()
{
    // Entries leave one by one and are counted, so that a pass started from inside an entry keeps the order.
    unsigned long long end = 0;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        end = m_taken + m_work.size();
    }
    bool ran = false;
    for (;;) {
        std::function<void()> work;
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            if (m_taken >= end)
                return ran;
            work = std::move(m_work.front());
            m_work.pop_front();
            ++m_taken;
        }
        ran = true;
        try {
            work();
        } catch (const CommandError& error) {
            // one entry's failure must not stop the next
            if (*error.what() && Session::exists())
                Session::current().output.error(error.what());
        }
    }
}

void IdleQueue::drain(int limit)
{
    for (int pass = 0; pass < limit && runPass(); ++pass) {
    }
}

void IdleQueue::setWake(std::function<void()> wake)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    m_wake = std::move(wake);
}

}  // namespace kernel
