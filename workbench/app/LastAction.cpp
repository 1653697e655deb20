#include "app/LastAction.h"

#include "kernel/Syntax.h"

#include <utility>

namespace app {

LastAction::LastAction(kernel::Session& session) : m_session(session)
{
    m_session.commands.add("repeatLast", [this](const kernel::ValueList& args) { return command(args); });
}

LastAction::~LastAction()
{
    m_session.commands.remove("repeatLast");
}

kernel::Value LastAction::command(const kernel::ValueList& args)
{
    kernel::Syntax syntax;
    syntax.addFlag("ac", "addCommand", {kernel::ArgType::String});
    const kernel::ParsedArgs parsed = kernel::parsedOrThrow(syntax, args);
    if (parsed.has("addCommand")) {
        m_text = parsed.text("addCommand");
        return {};
    }
    // A text that itself repeats the last action must find none.
    const std::string text = std::exchange(m_text, {});
    const bool ok = m_session.script().execute(text, false, true).ok;
    m_text = text;
    if (!ok) {
        throw kernel::CommandError({});
    }
    return {};
}

}  // namespace app
