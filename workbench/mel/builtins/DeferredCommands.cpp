#include "mel/builtins/Builtin.h"
#include "mel/builtins/ScriptJobs.h"
#include "mel/builtins/Subjects.h"

#include <algorithm>
#include <memory>

namespace mel {

using kernel::CommandError;
using kernel::Value;

namespace {

/// Texts that wait for the host to be idle: first in, first out. A lower priority waits one or two passes longer.
class DeferredTexts : public std::enable_shared_from_this<DeferredTexts> {
public:
    explicit DeferredTexts(kernel::Session& session) : m_session(session) {}

    void add(const std::string& text, int passes)
    {
        m_pending.push_back({m_nextNumber, text});
        post(m_nextNumber++, passes);
    }

    kernel::StringArray list() const
    {
        kernel::StringArray texts;
        for (const Text& pending : m_pending)
            texts.push_back(pending.text);
        return texts;
    }

private:
    struct Text {
        unsigned number;
        std::string text;
    };

    void post(unsigned number, int passes)
    {
        m_session.idle.post([weak = weak_from_this(), number, passes] {
            const auto self = weak.lock();
            if (!self)
                return;
            if (passes > 0)
                self->post(number, passes - 1);
            else
                self->run(number);
        });
    }

    void run(unsigned number)
    {
        const auto found = std::find_if(m_pending.begin(), m_pending.end(),
                                        [&](const Text& pending) { return pending.number == number; });
        const std::string text = found->text;
        m_pending.erase(found);
        m_session.script().execute(text, false, true);
    }

    kernel::Session& m_session;
    std::vector<Text> m_pending;
    unsigned m_nextNumber = 0;
};

Value runEvalDeferred(BuiltinCall& call, DeferredTexts& texts)
{
    if (call.args.has("list"))
        return texts.list();
    std::string text;
    for (const std::string& part : call.objectNames())
        text += (text.empty() ? "" : " ") + part;
    if (text.empty())
        throw CommandError("No object was specified");
    texts.add(text, call.args.has("lowestPriority") ? 2 : call.args.has("lowPriority") ? 1 : 0);
    return {};
}

struct TriggerFlag {
    FlagRow flag;
    ScriptJobs::Trigger trigger;
    const char* event;  ///< null: named by the caller
};
const TriggerFlag kTriggers[] = {
    {{"event", "e", "ss"}, ScriptJobs::Trigger::Event, nullptr},
    {{"conditionTrue", "ct", "ss"}, ScriptJobs::Trigger::ConditionTrue, nullptr},
    {{"conditionFalse", "cf", "ss"}, ScriptJobs::Trigger::ConditionFalse, nullptr},
    {{"conditionChange", "cc", "ss"}, ScriptJobs::Trigger::ConditionChange, nullptr},
    {{"timeChange", "tc", "s"}, ScriptJobs::Trigger::Event, "timeChanged"},
    {{"idleEvent", "ie", "s"}, ScriptJobs::Trigger::Event, "idle"},
};

Value createJob(const BuiltinCall& call, ScriptJobs& jobs)
{
    ScriptJobs::Options options;
    options.runOnce = call.args.integer("runOnce") != 0;
    options.isProtected = call.args.has("protected");
    options.endsWithScene = call.args.has("killWithScene");
    for (const TriggerFlag& row : kTriggers) {
        if (!call.args.has(row.flag.longName))
            continue;
        const std::string name = row.event ? row.event : call.args.text(row.flag.longName, 0);
        const std::string text = call.args.text(row.flag.longName, row.event ? 0 : 1);
        return jobs.add(row.trigger, row.flag.longName, name, text, options);
    }
    throw CommandError("scriptJob: No event or condition was named.");
}

Value runScriptJob(BuiltinCall& call, ScriptJobs& jobs)
{
    const kernel::ParsedArgs& args = call.args;
    const bool force = args.has("force");
    if (args.has("listEvents"))
        return call.session.events.names();
    if (args.has("listConditions"))
        return call.session.events.conditionNames();
    if (args.has("listJobs"))
        return jobs.list();
    if (args.has("exists"))
        return int(jobs.exists(args.integer("exists")));
    if (args.has("killAll")) {
        jobs.killAll(force);
        return {};
    }
    if (args.has("kill")) {
        for (unsigned i = 0; i < args.useCount("kill"); ++i)
            jobs.kill(std::get<int>((*args.values("kill", i))[0]), force);
        return {};
    }
    return createJob(call, jobs);
}

}  // namespace

void addDeferredCommands(kernel::Session& session)
{
    const auto texts = std::make_shared<DeferredTexts>(session);
    addBuiltin(session, "evalDeferred",
               makeSyntax({{"lowPriority", "low"}, {"lowestPriority", "lp"}, {"evaluateNext", "en"}, {"list", "ls"}}),
               [texts](BuiltinCall& call) { return runEvalDeferred(call, *texts); });

    std::vector<FlagRow> flags = {{"kill", "k", "i", true}, {"killAll", "ka"},           {"force", "f"},
                                  {"permanent", "per"},     {"protected", "pro"},        {"runOnce", "ro", "b"},
                                  {"killWithScene", "kws"}, {"compressUndo", "cu", "b"}, {"exists", "ex", "i"},
                                  {"listEvents", "le"},     {"listConditions", "lc"},    {"listJobs", "lj"}};
    for (const TriggerFlag& row : kTriggers)
        flags.push_back(row.flag);
    const auto jobs = std::make_shared<ScriptJobs>(session);
    addBuiltin(session, "scriptJob", makeSyntax(flags, Modes::Create, 0, 0),
               [jobs](BuiltinCall& call) { return runScriptJob(call, *jobs); });
}

}  // namespace mel
