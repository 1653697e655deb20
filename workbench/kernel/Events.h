#pragma once

#include <deque>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace kernel {

/// Named host events ("SelectionChanged", "timeChanged", ...) and conditions ("playingBack", ...).
/// Delivery is on the main thread; an event raised from inside its own delivery is queued until that returns;
/// removing a callback during delivery is safe.
class Events {
public:
    using Callback = std::function<void()>;

    Events();
    bool isEvent(const std::string& name) const;
    std::vector<std::string> names() const;
    /// Returns an id above 0; 0 for an unknown event.
    unsigned add(const std::string& event, Callback callback, const std::string& plugin = {});
    bool remove(unsigned id);
    /// Removes what a module left behind; gives the number removed.
    unsigned removeOf(const std::string& plugin);
    void raise(const std::string& event);

    bool isCondition(const std::string& name) const;
    bool condition(const std::string& name) const;
    std::vector<std::string> conditionNames() const;
    /// Tells watchers when it changes, all of them in the order of the changes; an unknown name becomes a condition.
    void setCondition(const std::string& name, bool state);
    /// Its watchers stay, and hear again when there is one of that name again.
    void removeCondition(const std::string& name) { m_conditions.erase(name); }
    using ConditionCallback = std::function<void(bool)>;
    /// Returns an id above 0; 0 for an unknown condition.
    unsigned watch(const std::string& condition, ConditionCallback callback);
    bool unwatch(unsigned id);

private:
    struct Entry {
        unsigned id;
        std::string event;
        Callback callback;
        std::string plugin;
    };
    struct Watcher {
        unsigned id;
        std::string condition;
        ConditionCallback callback;
    };
    void deliver(const std::string& event);
    void tellWatchers(const std::string& condition, bool state);

    std::vector<Entry> m_entries;
    std::vector<Watcher> m_watchers;
    std::map<std::string, int> m_running;  ///< event -> raises waiting while it is being delivered
    std::map<std::string, bool> m_conditions;
    std::map<std::string, std::deque<bool>> m_untold;  ///< condition -> changes not told to everybody yet
    unsigned m_nextId = 1;
};

/// A condition that holds while this lives.
class During {
public:
    During(Events& events, const char* condition)
        : m_events(events), m_condition(condition), m_before(events.condition(condition))
    {
        m_events.setCondition(m_condition, true);
    }
    ~During() { m_events.setCondition(m_condition, m_before); }
    During(const During&) = delete;
    During& operator=(const During&) = delete;

private:
    Events& m_events;
    const char* const m_condition;
    const bool m_before;
};

}  // namespace kernel
