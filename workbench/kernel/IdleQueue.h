#pragma once

#include <deque>
#include <functional>
#include <mutex>

namespace kernel {

/// Work put off until the host is idle: first in, first out. May be filled from any thread; run on the main one.
class IdleQueue {
public:
    void post(std::function<void()> work);
    bool isEmpty() const;
    /// Runs what was queued when it was called; what those entries post waits for the next pass.
    /// Returns whether anything ran.
    bool runPass();
    /// Passes until nothing is left (batch mode), at most `limit` of them.
    void drain(int limit = 1000);
    /// Called (from any thread) when the queue stops being empty, so that an event loop can wake up. What a pass
    /// leaves behind does not wake again: ask isEmpty() after it.
    void setWake(std::function<void()> wake);

private:
    mutable std::mutex m_mutex;
    std::deque<std::function<void()>> m_work;
    unsigned long long m_taken = 0;  ///< entries taken out so far
    std::function<void()> m_wake;
};

}  // namespace kernel
