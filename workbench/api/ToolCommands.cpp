#include "api/ToolCommands.h"

#include "api/Tools.h"
#include "kernel/Session.h"
#include "kernel/Syntax.h"

namespace api {

namespace {

using kernel::CommandError;
using kernel::ParsedArgs;
using kernel::Syntax;
using kernel::Value;
using kernel::ValueList;

Syntax plainSyntax(unsigned objects)
{
    Syntax syntax;
    syntax.setObjects(Syntax::Objects::Strings, objects, objects);
    return syntax;
}

Value setToolTo(const ValueList& args)
{
    const ParsedArgs parsed = kernel::parsedOrThrow(plainSyntax(1), args, "setToolTo");
    ToolBox::instance().setCurrent(kernel::toText(parsed.objects[0]));
    return {};
}

Value currentCtx(const ValueList& args)
{
    kernel::parsedOrThrow(plainSyntax(0), args, "currentCtx");
    return ToolBox::instance().currentName();
}

Value ctxAbort(const ValueList& args)
{
    kernel::parsedOrThrow(plainSyntax(0), args, "ctxAbort");
    ToolBox::instance().abort();
    return {};
}

Value ctxCompletion(const ValueList& args)
{
    kernel::parsedOrThrow(plainSyntax(0), args, "ctxCompletion");
    ToolBox::instance().complete();
    return {};
}

Syntax contextInfoSyntax()
{
    Syntax syntax = plainSyntax(1);
    syntax.addFlag("ex", "exists");
    syntax.addFlag("c", "class");
    syntax.addFlag("t", "title");
    syntax.addFlag("i1", "image1");
    syntax.addFlag("esc", "escapeContext");
    return syntax;
}

Value contextInfo(const ValueList& args)
{
    const ParsedArgs parsed = kernel::parsedOrThrow(contextInfoSyntax(), args, "contextInfo");
    const ToolBox& tools = ToolBox::instance();
    const std::string name = kernel::toText(parsed.objects[0]);
    if (parsed.has("exists"))
        return tools.exists(name) ? 1 : 0;
    if (!tools.exists(name))
        throw CommandError("Cannot find tool context: " + name);
    if (parsed.has("class"))
        return tools.classOf(name);
    if (parsed.has("title"))
        return tools.titleOf(name);
    if (parsed.has("image1"))
        return tools.imageOf(name);
    if (parsed.has("escapeContext"))
        return std::string("selectSuperContext");
    throw CommandError("contextInfo: No flag was specified");
}

}  // namespace

void installToolCommands(kernel::Session& session)
{
    session.commands.add("setToolTo", setToolTo);
    session.commands.add("currentCtx", currentCtx);
    session.commands.add("contextInfo", contextInfo);
    session.commands.add("ctxAbort", ctxAbort);
    session.commands.add("ctxCompletion", ctxCompletion);
}

}  // namespace api
