#include "mel/builtins/Builtin.h"
#include "mel/builtins/Subjects.h"

namespace mel {

using kernel::CommandError;
using kernel::Value;

namespace {

kernel::IdleQueue::Priority priority(const kernel::ParsedArgs& args)
{
    using Priority = kernel::IdleQueue::Priority;
    return args.has("evaluateNext")   ? Priority::First
         : args.has("lowestPriority") ? Priority::Lowest
         : args.has("lowPriority")    ? Priority::Low
                                      : Priority::Usual;
}

Value runEvalDeferred(BuiltinCall& call)
{
    kernel::Session& session = call.session;
    if (call.args.has("list"))
        return session.idle.texts();
    std::string text;
    for (const std::string& part : call.objectNames())
        text += (text.empty() ? "" : " ") + part;
    if (text.empty())
        throw CommandError("No object was specified");
    session.idle.post([&session, text] { session.script().execute(text, false, true); }, priority(call.args), text);
    return {};
}

}  // namespace

void addDeferredCommands(kernel::Session& session)
{
    addBuiltin(session, "evalDeferred",
               makeSyntax({{"lowPriority", "low"}, {"lowestPriority", "lp"}, {"evaluateNext", "en"}, {"list", "ls"}}),
               runEvalDeferred);
}

}  // namespace mel
