#include "mel/builtins/ScriptJobs.h"

#include "mel/builtins/Quoting.h"

#include <algorithm>

namespace mel {

using kernel::CommandError;

namespace {

/// Whether the attribute is the other one or a part of it.
bool isWithin(const kernel::Node& node, const kernel::AttributeSpec& attribute, const kernel::AttributeSpec& whole)
{
    if (attribute.longName == whole.longName)
        return true;
    const kernel::AttributePtr parent = attribute.parent.empty() ? nullptr : node.attribute(attribute.parent);
    return parent && isWithin(node, *parent, whole);
}

}  // namespace

ScriptJobs::ScriptJobs(kernel::Session& session) : m_session(session)
{
    m_session.changes = this;
}

ScriptJobs::~ScriptJobs()
{
    m_session.changes = nullptr;
}

int ScriptJobs::add(Trigger trigger, const std::string& flag, const std::string& name, const std::string& text,
                    Options options)
{
    Job job;
    job.number = m_nextNumber;
    job.trigger = trigger;
    job.flag = flag;
    job.name = name;
    job.text = text;
    job.options = options;
    bind(job);
    if (job.options.endsWithScene)
        watchScene();
    m_jobs.push_back(std::move(job));
    if (trigger == Trigger::Idle)
        fire(m_nextNumber);
    return m_nextNumber++;
}

// What watches a node has nothing left to watch in the next scene.
void ScriptJobs::bind(Job& job)
{
    switch (job.trigger) {
    case Trigger::Event:
    case Trigger::ConditionTrue:
    case Trigger::ConditionFalse:
    case Trigger::ConditionChange: job.watch = watch(job); break;
    case Trigger::Attribute: {
        const auto plug = m_session.scene.findPlug(job.name);
        job.node = plug.first;
        job.attribute = plug.second;
        job.options.endsWithScene = true;
        break;
    }
    case Trigger::NodeName:
    case Trigger::NodeDeleted:
        job.node = m_session.scene.findOne(job.name);
        job.options.endsWithScene = true;
        break;
    case Trigger::OptionVar:
    case Trigger::Idle: break;
    }
}

unsigned ScriptJobs::watch(const Job& job)
{
    const auto fireJob = [weak = weak_from_this(), number = job.number] {
        if (const auto jobs = weak.lock())
            jobs->fire(number);
    };
    const Trigger trigger = job.trigger;
    const unsigned id = trigger == Trigger::Event
                          ? m_session.events.add(job.name, fireJob)
                          : m_session.events.watch(job.name, [trigger, fireJob](bool state) {
                                if (trigger == Trigger::ConditionChange || state == (trigger == Trigger::ConditionTrue))
                                    fireJob();
                            });
    if (id == 0)
        throw CommandError(std::string("scriptJob: Unknown ") + (trigger == Trigger::Event ? "event" : "condition")
                           + ": " + job.name);
    return id;
}

// Jobs that end with the scene do so before anything of the next one is there: that may bring jobs of its own.
void ScriptJobs::watchScene()
{
    if (m_watchesScene)
        return;
    m_watchesScene = true;
    m_session.events.watch("flushingScene", [weak = weak_from_this()](bool isFlushing) {
        const auto jobs = weak.lock();
        if (jobs && isFlushing)
            jobs->endWithScene();
    });
}

void ScriptJobs::endWithScene()
{
    const std::vector<Job> all = m_jobs;
    for (const Job& job : all) {
        if (job.options.endsWithScene)
            remove(job.number);
    }
}

void ScriptJobs::attributeChanged(const kernel::Node& node, const kernel::AttributeSpec& attribute)
{
    fireWhere([&](const Job& job) {
        return job.trigger == Trigger::Attribute && job.node.lock().get() == &node
            && isWithin(node, attribute, *job.attribute);
    });
}

void ScriptJobs::nodeRenamed(const kernel::Node& node)
{
    fireWhere([&](const Job& job) { return job.trigger == Trigger::NodeName && job.node.lock().get() == &node; });
}

void ScriptJobs::nodeRemoved(const kernel::Node& node)
{
    fireWhere([&](const Job& job) { return job.trigger == Trigger::NodeDeleted && job.node.lock().get() == &node; });
}

void ScriptJobs::optionVarChanged(const std::string& name)
{
    fireWhere([&](const Job& job) { return job.trigger == Trigger::OptionVar && job.name == name; });
}

void ScriptJobs::fireWhere(const std::function<bool(const Job& job)>& concerns)
{
    for (const Job& job : m_jobs) {
        if (concerns(job))
            fire(job.number);
    }
}

void ScriptJobs::fire(int number)
{
    Job* job = find(number);
    if (!job || m_session.batch)
        return;
    if (job->trigger == Trigger::Event && m_session.playback.isPlaying())
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

// A job may end itself and others, and add new ones; what it does to one that is still to run is not done twice.
void ScriptJobs::runDue()
{
    m_isPosted = false;
    std::vector<int> due;
    for (const Job& job : m_jobs) {
        if (job.isDue)
            due.push_back(job.number);
    }
    for (const int number : due) {
        Job* found = find(number);
        if (!found)
            continue;
        found->isDue = false;
        const Job job = *found;
        if (job.options.runOnce)
            remove(number);
        run(job.text, job.options.joinsLastStep);
        if (job.trigger == Trigger::Idle)
            fire(number);
    }
}

void ScriptJobs::run(const std::string& text, bool joinsLastStep)
{
    if (joinsLastStep)
        m_session.undo.reopenLastChunk();
    m_session.script().execute(text, false, true);
    if (joinsLastStep)
        m_session.undo.closeChunk();
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
    if (job->options.isPermanent)
        throw CommandError("scriptJob: Job number " + std::to_string(number) + " is permanent.");
    if (job->options.isProtected && !force)
        throw CommandError("scriptJob: Job number " + std::to_string(number) + " is protected.");
    remove(number);
}

void ScriptJobs::killAll(bool force)
{
    const std::vector<Job> all = m_jobs;
    for (const Job& job : all) {
        if (!job.options.isPermanent && (force || !job.options.isProtected))
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
        std::string line = std::to_string(job.number) + ":";
        const std::pair<bool, const char*> marks[] = {
            {job.options.isPermanent, "-permanent"},
            {job.options.isProtected, "-protected"},
            {job.options.runOnce, "-runOnce"},
        };
        for (const auto& mark : marks) {
            if (mark.first)
                line += " " + quoted(mark.second);
        }
        line += " " + quoted("-" + job.flag);
        if (!job.name.empty())
            line += " " + quoted(job.name);
        lines.push_back(line + " " + quoted(job.text));
    }
    return lines;
}

}  // namespace mel
