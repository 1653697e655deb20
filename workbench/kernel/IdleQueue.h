#pragma once

#include <array>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

namespace kernel {

/// Work put off until the host is idle: first in, first out within a priority. May be filled from any thread; run on
/// the main one.
class IdleQueue {
public:
    enum class Priority { First, Usual, Low, Lowest };

    /// text: what the work runs, when it is a script.
    void post(std::function<void()> work, Priority priority = Priority::Usual, std::string text = {});
    /// Takes back the scripts that are unwanted.
    void drop(const std::function<bool(const std::string& text)>& isUnwanted);
    /// The scripts that wait, in the order they will run.
    std::vector<std::string> texts() const;
    bool isEmpty() const;
    /// Runs what was queued when it was called, by priority; what those entries post waits for the next pass.
    /// Returns whether anything ran.
    bool runPass();
    /// Passes until nothing is left (batch mode), at most `limit` of them.
    void drain(int limit = 1000);
    /// Called (from any thread) when the queue stops being empty, so that an event loop can wake up. What a pass
    /// leaves behind does not wake again: ask isEmpty() after it.
    void setWake(std::function<void()> wake);

private:
    struct Entry {
        unsigned long long number;  ///< counts what was ever posted
        std::function<void()> work;
        std::string text;
    };
    bool hasWork() const;
    /// The next one with a number below `end`; empty when there is none.
    std::function<void()> takeBefore(unsigned long long end);

    mutable std::mutex m_mutex;
    std::array<std::deque<Entry>, 4> m_work;  ///< by priority
    unsigned long long m_posted = 0;
    std::function<void()> m_wake;
};

}  // namespace kernel
