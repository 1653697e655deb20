#include "kernel/Output.h"

#include <algorithm>

namespace kernel {

int Output::addListener(Listener listener)
{
    m_listeners.push_back({m_nextId, std::move(listener)});
    return m_nextId++;
}

void Output::removeListener(int id)
{
    m_listeners.erase(
        std::remove_if(m_listeners.begin(), m_listeners.end(), [id](const Entry& entry) { return entry.id == id; }),
        m_listeners.end());
}

void Output::say(Severity severity, const std::string& text)
{
    if (m_muted > 0 && (severity == Severity::Warning || severity == Severity::Error))
        return;
    const std::vector<Entry> listeners = m_listeners;  // one of them may remove itself
    for (const Entry& entry : listeners)
        entry.listener(severity, text);
}

Output::Mute::Mute(Output& output) : m_output(output)
{
    ++m_output.m_muted;
}

Output::Mute::~Mute()
{
    --m_output.m_muted;
}

}  // namespace kernel
