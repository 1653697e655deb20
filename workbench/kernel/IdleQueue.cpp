#include "kernel/IdleQueue.h"

#include "kernel/Session.h"

#include <algorithm>

namespace kernel {

void IdleQueue::post(std::function<void()> work, Priority priority, std::string text)
{
    std::function<void()> wake;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (!hasWork())
            wake = m_wake;
        m_work[static_cast<std::size_t>(priority)].push_back({m_posted++, std::move(work), std::move(text)});
    }
    if (wake)
        wake();
}

void IdleQueue::drop(const std::function<bool(const std::string& text)>& isUnwanted)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (std::deque<Entry>& entries : m_work) {
        const auto isDropped = [&](const Entry& entry) { return !entry.text.empty() && isUnwanted(entry.text); };
        entries.erase(std::remove_if(entries.begin(), entries.end(), isDropped), entries.end());
    }
}

std::vector<std::string> IdleQueue::texts() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    std::vector<std::string> texts;
    for (const std::deque<Entry>& entries : m_work) {
        for (const Entry& entry : entries) {
            if (!entry.text.empty())
                texts.push_back(entry.text);
        }
    }
    return texts;
}

bool IdleQueue::isEmpty() const
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    return !hasWork();
}

bool IdleQueue::hasWork() const
{
    return std::any_of(m_work.begin(), m_work.end(), [](const auto& entries) { return !entries.empty(); });
}

std::function<void()> IdleQueue::takeBefore(unsigned long long end)
{
    const std::lock_guard<std::mutex> lock(m_mutex);
    for (std::deque<Entry>& entries : m_work) {
        if (entries.empty() || entries.front().number >= end)
            continue;
        std::function<void()> work = std::move(entries.front().work);
        entries.pop_front();
        return work;
    }
    return {};
}

bool IdleQueue::runPass()
{
    // Entries leave one by one, so that a pass started from inside an entry keeps the order.
    unsigned long long end = 0;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        end = m_posted;
    }
    bool ran = false;
    while (const std::function<void()> work = takeBefore(end)) {
        ran = true;
        try {
            work();
        } catch (const std::exception& error) {
            // one entry's failure must not stop the next
            if (*error.what() && Session::exists())
                Session::current().output.error(error.what());
        }
    }
    return ran;
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
