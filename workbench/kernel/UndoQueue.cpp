#include "kernel/UndoQueue.h"

#include <algorithm>
#include <utility>

namespace kernel {

void UndoQueue::openChunk(const std::string& name)
{
    ++m_depth;
    if (m_open.name.empty())
        m_open.name = name;
}

void UndoQueue::reopenLastChunk()
{
    if (m_depth++ > 0 || m_done.empty())
        return;
    m_open = std::move(m_done.back());
    m_done.pop_back();
}

void UndoQueue::closeChunk()
{
    if (m_depth == 0 || --m_depth > 0)
        return;
    closeOpenSteps();
    m_open.name.clear();
    m_givenName.clear();
}

void UndoQueue::closeOpenSteps()
{
    if (m_open.steps.empty())
        return;
    Chunk chunk;
    chunk.name = openName();
    chunk.steps.swap(m_open.steps);
    push(std::move(chunk));
}

void UndoQueue::record(std::unique_ptr<Command> command)
{
    const std::string plugin = std::exchange(m_nextPlugin, {});
    if (!m_enabled || m_suspended > 0 || m_undoing || m_redoing)
        return;
    // Goes at the end: a command's destructor may come back here.
    const std::deque<Chunk> dropped = std::exchange(m_undone, {});
    if (m_depth > 0) {
        m_open.steps.push_back({std::move(command), plugin});
    } else {
        Chunk chunk;
        chunk.steps.push_back({std::move(command), plugin});
        push(std::move(chunk));
    }
    notify();
}

void UndoQueue::push(Chunk chunk)
{
    m_done.push_back(std::move(chunk));
    trim();
}

void UndoQueue::trim()
{
    while (!m_infinite && m_done.size() > m_length) {
        const Chunk dropped = std::move(m_done.front());
        m_done.pop_front();
    }
}

bool UndoQueue::undo()
{
    if (m_undoing || m_redoing)
        return false;
    closeOpenSteps();
    if (m_done.empty())
        return false;
    Chunk chunk = std::move(m_done.back());
    m_done.pop_back();
    m_undoing = true;
    const bool ok = take(chunk, &Command::undo, true);
    m_undoing = false;
    if (ok)
        m_undone.push_back(std::move(chunk));
    else if (m_failed)
        m_failed("The step could not be undone and was dropped: " + chunk.name);
    notify();
    return ok;
}

bool UndoQueue::redo()
{
    if (m_undoing || m_redoing || m_undone.empty())
        return false;
    closeOpenSteps();
    Chunk chunk = std::move(m_undone.back());
    m_undone.pop_back();
    m_redoing = true;
    const bool ok = take(chunk, &Command::redo, false);
    m_redoing = false;
    if (ok)
        push(std::move(chunk));
    else if (m_failed)
        m_failed("The step could not be redone and was dropped: " + chunk.name);
    notify();
    return ok;
}

bool UndoQueue::take(Chunk& chunk, bool (Command::*step)(), bool backwards)
{
    const std::size_t count = chunk.steps.size();
    try {
        for (std::size_t i = 0; i < count; ++i) {
            Command& command = *chunk.steps[backwards ? count - 1 - i : i].command;
            if (!(command.*step)())
                return false;
        }
    } catch (const std::exception& error) {
        if (m_failed && *error.what())
            m_failed(error.what());
        return false;
    }
    return true;
}

std::string UndoQueue::undoName() const
{
    if (!m_open.steps.empty())
        return openName();
    return m_done.empty() ? std::string() : m_done.back().name;
}

std::string UndoQueue::redoName() const
{
    return m_undone.empty() ? std::string() : m_undone.back().name;
}

void UndoQueue::flush()
{
    // Moved out first: a command's destructor may come back here.
    const std::deque<Chunk> done = std::exchange(m_done, {});
    const std::deque<Chunk> undone = std::exchange(m_undone, {});
    const std::vector<Step> open = std::exchange(m_open.steps, {});
    notify();
}

void UndoQueue::setEnabled(bool on)
{
    m_enabled = on;
    if (!on)
        flush();
}

void UndoQueue::setEnabledWithoutFlush(bool on)
{
    m_enabled = on;
}

std::vector<std::string> UndoQueue::names() const
{
    std::vector<std::string> names;
    for (const Chunk& chunk : m_done)
        names.push_back(chunk.name);
    return names;
}

void UndoQueue::setInfinite(bool on)
{
    m_infinite = on;
    trim();
    notify();
}

void UndoQueue::setLength(unsigned length)
{
    m_length = length;
    trim();
    notify();
}

bool UndoQueue::holdsCommandsOf(const std::string& plugin) const
{
    const auto isOf = [&plugin](const Step& step) { return step.plugin == plugin; };
    const auto holds = [&isOf](const Chunk& chunk) {
        return std::any_of(chunk.steps.begin(), chunk.steps.end(), isOf);
    };
    return holds(m_open) || std::any_of(m_done.begin(), m_done.end(), holds)
        || std::any_of(m_undone.begin(), m_undone.end(), holds);
}

void UndoQueue::setListeners(std::function<void()> changed, std::function<void(const std::string&)> failed)
{
    m_changed = std::move(changed);
    m_failed = std::move(failed);
}

void UndoQueue::notify()
{
    if (m_changed)
        m_changed();
}

}  // namespace kernel
