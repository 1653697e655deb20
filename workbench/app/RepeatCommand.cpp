#include "app/RepeatCommand.h"

#include "kernel/Syntax.h"

#include <utility>

namespace app {

namespace {

kernel::Value repeatLast(kernel::Session& session, const kernel::ValueList& args)
{
    kernel::Syntax syntax;
    syntax.addFlag("ac", "addCommand", {kernel::ArgType::String});
    const kernel::ParsedArgs parsed = kernel::parsedOrThrow(syntax, args);
    if (parsed.has("addCommand")) {
        session.lastAction = parsed.text("addCommand");
        return {};
    }
    // A text that itself repeats the last action must find none, unless it told of another.
    const std::string text = std::exchange(session.lastAction, {});
    const bool ok = session.script().execute(text, false, true).ok;
    if (session.lastAction.empty()) {
        session.lastAction = text;
    }
    if (!ok) {
        throw kernel::CommandError({});
    }
    return {};
}

}  // namespace

void registerRepeatCommand(kernel::Session& session)
{
    session.commands.add("repeatLast", [&session](const kernel::ValueList& args) { return repeatLast(session, args); });
}

}  // namespace app
