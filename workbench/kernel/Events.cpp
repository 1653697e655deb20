#include "kernel/Events.h"

#include <algorithm>

namespace kernel {

namespace {

const char* const kEvents[] = {
    "DagObjectCreated",
    "MenuModeChanged",
    "NameChanged",
    "NewSceneOpened",
    "PostSceneRead",
    "PostToolChanged",
    "Redo",
    "SceneOpened",
    "SceneSaved",
    "SelectionChanged",
    "ToolChanged",
    "Undo",
    "deleteAll",
    "idle",
    "idleHigh",
    "playbackModeChanged",
    "playbackRangeChanged",
    "quitApplication",
    "timeChanged",
    "timeUnitChanged",
    "workspaceChanged",
};

const char* const kConditions[] = {
    "RedoAvailable", "SomethingSelected", "UndoAvailable", "autoKeyframeState", "busy",        "deleteAllCondition",
    "flushingScene", "playblasting",      "playingBack",   "readingFile",       "writingFile",
};

/// An event whose delivery raises it again, or a condition whose telling changes it, is delivered this often in a row,
/// then the chain is cut: a callback that always answers with the same must not hang the host.
constexpr int kMostDeliveries = 100;

}  // namespace

Events::Events()
{
    for (const char* name : kConditions)
        m_conditions[name] = false;
}

bool Events::isEvent(const std::string& name) const
{
    return std::find(std::begin(kEvents), std::end(kEvents), name) != std::end(kEvents);
}

std::vector<std::string> Events::names() const
{
    return {std::begin(kEvents), std::end(kEvents)};
}

unsigned Events::add(const std::string& event, Callback callback, const std::string& plugin)
{
    if (!isEvent(event))
        return 0;
    m_entries.push_back({m_nextId, event, std::move(callback), plugin});
    return m_nextId++;
}

bool Events::remove(unsigned id)
{
    const auto it =
        std::find_if(m_entries.begin(), m_entries.end(), [id](const Entry& entry) { return entry.id == id; });
    if (it == m_entries.end())
        return false;
    m_entries.erase(it);
    return true;
}

unsigned Events::removeOf(const std::string& plugin)
{
    const auto end = std::remove_if(m_entries.begin(), m_entries.end(),
                                    [&plugin](const Entry& entry) { return entry.plugin == plugin; });
    const unsigned removed = static_cast<unsigned>(m_entries.end() - end);
    m_entries.erase(end, m_entries.end());
    return removed;
}

void Events::raise(const std::string& event)
{
    const auto running = m_running.find(event);
    if (running != m_running.end()) {
        ++running->second;
        return;
    }
    struct Delivery {
        Delivery(std::map<std::string, int>& all, const std::string& name) : running(all), event(name)
        {
            running[event] = 0;
        }
        ~Delivery() { running.erase(event); }
        std::map<std::string, int>& running;
        const std::string event;
    } delivery(m_running, event);

    int due = 1;
    for (int round = 0; due > 0 && round < kMostDeliveries; ++round) {
        deliver(delivery.event);
        due += m_running[delivery.event] - 1;
        m_running[delivery.event] = 0;
    }
}

void Events::deliver(const std::string& event)
{
    std::vector<unsigned> ids;
    for (const Entry& entry : m_entries) {
        if (entry.event == event)
            ids.push_back(entry.id);
    }
    for (const unsigned id : ids) {
        const auto it =
            std::find_if(m_entries.begin(), m_entries.end(), [id](const Entry& entry) { return entry.id == id; });
        if (it == m_entries.end())
            continue;
        const Callback callback = it->callback;  // it may remove itself while it runs
        callback();
    }
}

bool Events::isCondition(const std::string& name) const
{
    return m_conditions.count(name) != 0;
}

bool Events::condition(const std::string& name) const
{
    const auto it = m_conditions.find(name);
    return it != m_conditions.end() && it->second;
}

std::vector<std::string> Events::conditionNames() const
{
    std::vector<std::string> names;
    for (const auto& condition : m_conditions)
        names.push_back(condition.first);
    return names;
}

void Events::setCondition(const std::string& name, bool state)
{
    bool& current = m_conditions[name];
    if (current == state)
        return;
    current = state;
    // A change that a watcher makes is told once everybody has heard of the one before.
    std::deque<bool>& untold = m_untold[name];
    untold.push_back(state);
    if (untold.size() > 1)
        return;
    struct Telling {
        ~Telling() { all.erase(condition); }
        std::map<std::string, std::deque<bool>>& all;
        const std::string condition;
    } telling{m_untold, name};
    for (int round = 0; !untold.empty() && round < kMostDeliveries; ++round) {
        tellWatchers(telling.condition, untold.front());
        untold.pop_front();
    }
}

void Events::tellWatchers(const std::string& name, bool state)
{
    std::vector<unsigned> ids;
    for (const Watcher& watcher : m_watchers) {
        if (watcher.condition == name)
            ids.push_back(watcher.id);
    }
    for (const unsigned id : ids) {
        const auto it = std::find_if(m_watchers.begin(), m_watchers.end(),
                                     [id](const Watcher& watcher) { return watcher.id == id; });
        if (it == m_watchers.end())
            continue;
        const ConditionCallback callback = it->callback;
        callback(state);
    }
}

unsigned Events::watch(const std::string& condition, ConditionCallback callback)
{
    if (!isCondition(condition))
        return 0;
    m_watchers.push_back({m_nextId, condition, std::move(callback)});
    return m_nextId++;
}

bool Events::unwatch(unsigned id)
{
    const auto it =
        std::find_if(m_watchers.begin(), m_watchers.end(), [id](const Watcher& watcher) { return watcher.id == id; });
    if (it == m_watchers.end())
        return false;
    m_watchers.erase(it);
    return true;
}

}  // namespace kernel
