#include "mel/builtins/Builtin.h"
#include "mel/builtins/ScriptJobs.h"
#include "mel/builtins/Subjects.h"

#include <memory>

namespace mel {

using kernel::CommandError;
using kernel::Value;

namespace {

using Trigger = ScriptJobs::Trigger;

/// A trigger of two values is followed by what it watches, then the script; others by the script alone.
struct TriggerFlag {
    FlagRow flag;
    Trigger trigger;
    const char* watched = "";
};
const TriggerFlag kTriggers[] = {
    {{"event", "e", "ss"}, Trigger::Event},
    {{"conditionTrue", "ct", "ss"}, Trigger::ConditionTrue},
    {{"conditionFalse", "cf", "ss"}, Trigger::ConditionFalse},
    {{"conditionChange", "cc", "ss"}, Trigger::ConditionChange},
    {{"attributeChange", "ac", "ss"}, Trigger::Attribute},
    {{"nodeNameChanged", "nnc", "ss"}, Trigger::NodeName},
    {{"nodeDeleted", "nd", "ss"}, Trigger::NodeDeleted},
    {{"optionVarChanged", "ovc", "ss"}, Trigger::OptionVar},
    {{"timeChange", "tc", "s"}, Trigger::Event, "timeChanged"},
    {{"idleEvent", "ie", "s"}, Trigger::Idle},
};

/// Flags of jobs that come and go with parts of a window.
const FlagRow kWindowFlags[] = {
    {"parent", "p", "s"},
    {"replacePrevious", "rp"},
    {"uiDeleted", "uid", "ss"},
};

ScriptJobs::Options optionsOf(const kernel::ParsedArgs& args)
{
    ScriptJobs::Options options;
    options.runOnce = args.integer("runOnce") != 0;
    options.isProtected = args.has("protected");
    options.isPermanent = args.has("permanent");
    options.endsWithScene = args.has("killWithScene");
    options.joinsLastStep = args.integer("compressUndo") != 0;
    if (options.isPermanent && options.endsWithScene)
        throw CommandError("scriptJob: A permanent job cannot end with the scene.");
    return options;
}

Value createJob(const kernel::ParsedArgs& args, ScriptJobs& jobs)
{
    for (const FlagRow& flag : kWindowFlags) {
        if (args.has(flag.longName))
            throw CommandError(std::string("scriptJob: -") + flag.longName
                               + " is not supported; a job cannot follow a part of a window.");
    }
    const TriggerFlag* chosen = nullptr;
    for (const TriggerFlag& row : kTriggers) {
        if (!args.has(row.flag.longName))
            continue;
        if (chosen)
            throw CommandError("scriptJob: A job has one trigger only.");
        chosen = &row;
    }
    if (!chosen)
        throw CommandError("scriptJob: No event or condition was named.");
    const char* const flag = chosen->flag.longName;
    const kernel::ValueList& values = *args.values(flag);
    const std::string watched = values.size() > 1 ? kernel::toText(values.front()) : chosen->watched;
    return jobs.add(chosen->trigger, flag, watched, kernel::toText(values.back()), optionsOf(args));
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
    return createJob(args, jobs);
}

}  // namespace

void addScriptJobCommand(kernel::Session& session)
{
    std::vector<FlagRow> flags = {{"kill", "k", "i", true}, {"killAll", "ka"},           {"force", "f"},
                                  {"permanent", "per"},     {"protected", "pro"},        {"runOnce", "ro", "b"},
                                  {"killWithScene", "kws"}, {"compressUndo", "cu", "b"}, {"exists", "ex", "i"},
                                  {"listEvents", "le"},     {"listConditions", "lc"},    {"listJobs", "lj"}};
    flags.insert(flags.end(), std::begin(kWindowFlags), std::end(kWindowFlags));
    for (const TriggerFlag& row : kTriggers)
        flags.push_back(row.flag);
    const auto jobs = std::make_shared<ScriptJobs>(session);
    addBuiltin(session, "scriptJob", makeSyntax(flags, Modes::Create, 0, 0),
               [jobs](BuiltinCall& call) { return runScriptJob(call, *jobs); });
}

}  // namespace mel
