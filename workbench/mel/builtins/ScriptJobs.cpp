#include "mel/builtins/ScriptJobs.h"

#include "mel/builtins/Quoting.h"

#include <algorithm>

namespace mel {

using kernel::CommandError;

int ScriptJobs::add(Trigger trigger, const std::string& flag, const std::string& name, const std::string& text,
                    Options options)
{
    const int number = m_nextNumber;
    const unsigned id = watch(trigger, name, [weak = weak_from_this(), number] {
        if (const auto jobs = weak.lock())
            jobs->fire(number);
    });
    if (id == 0)
        throw CommandError(std::string("scriptJob: Unknown ") + (trigger == Trigger::Event ? "event" : "condition")
                           + ": " + name);
    ++m_nextNumber;
    if (options.endsWithScene)
        watchScene();
    m_jobs.push_back({number, trigger, flag, name, text, options, id, false});
    return number;
}

unsigned ScriptJobs::watch(Trigger trigger, const std::string& name, std::function<void()> fire)
{
    if (trigger == Trigger::Event)
        return m_session.events.add(name, std::move(fire));
    return m_session.events.watch(name, [trigger, fire = std::move(fire)](bool state) {
        if (trigger == Trigger::ConditionChange || state == (trigger == Trigger::ConditionTrue))
            fire();
    });
}

// Jobs that end with the scene do so before anybody is told about the next one.
void ScriptJobs::watchScene()
{
    if (m_watchesScene)
        return;
    m_watchesScene = true;
    for (const char* event : {"deleteAll", "PostSceneRead"}) {
        m_session.events.add(event, [weak = weak_from_this()] {
            if (const auto jobs = weak.lock())
                jobs->endWithScene();
        });
    }
}

void ScriptJobs::endWithScene()
{
    const std::vector<Job> all = m_jobs;
    for (const Job& job : all) {
        if (job.options.endsWithScene)
            remove(job.number);
    }
}

void ScriptJobs::fire(int number)
{
    Job* job = find(number);
    if (!job || m_session.batch)
        return;
    if (job->trigger == Trigger::Event && m_session.events.condition("playingBack"))
        return;
    job->isDue = true;
    if (m_isPosted)
        return;
    m_isPosted = true;
    m_session.idle.post([weak = weak_from_this()] {
        if (const auto jobs = weak.lock())
            jobs->runDue();
    });
}

void ScriptJobs::runDue()
{
    m_isPosted = false;
    std::vector<int> due;
    for (Job& job : m_jobs) {
        if (job.isDue)
            due.push_back(job.number);
        job.isDue = false;
    }
    for (const int number : due) {
        const Job* job = find(number);
        if (!job)
            continue;  // killed by one that ran before it
        const std::string text = job->text;
        if (job->options.runOnce)
            remove(number);
        m_session.script().execute(text, false, true);
    }
}

ScriptJobs::Job* ScriptJobs::find(int number)
{
    const auto found = std::find_if(m_jobs.begin(), m_jobs.end(), [&](const Job& job) { return job.number == number; });
    return found == m_jobs.end() ? nullptr : &*found;
}

void ScriptJobs::remove(int number)
{
    const Job* job = find(number);
    if (job->trigger == Trigger::Event)
        m_session.events.remove(job->watch);
    else
        m_session.events.unwatch(job->watch);
    m_jobs.erase(m_jobs.begin() + (job - m_jobs.data()));
}

void ScriptJobs::kill(int number, bool force)
{
    const Job* job = find(number);
    if (!job)
        throw CommandError("scriptJob: There is no job number " + std::to_string(number) + ".");
    if (job->options.isProtected && !force)
        throw CommandError("scriptJob: Job number " + std::to_string(number) + " is protected.");
    remove(number);
}

void ScriptJobs::killAll(bool force)
{
    const std::vector<Job> all = m_jobs;
    for (const Job& job : all) {
        if (force || !job.options.isProtected)
            remove(job.number);
    }
}

bool ScriptJobs::exists(int number) const
{
    return std::any_of(m_jobs.begin(), m_jobs.end(), [&](const Job& job) { return job.number == number; });
}

std::vector<std::string> ScriptJobs::list() const
{
    std::vector<std::string> lines;
    for (const Job& job : m_jobs) {
        std::string line = std::to_string(job.number) + ": ";
        if (job.options.isProtected)
            line += "\"-protected\" ";
        line += quoted("-" + job.flag) + " " + quoted(job.name) + " " + quoted(job.text);
        lines.push_back(line);
    }
    return lines;
}

}  // namespace mel
