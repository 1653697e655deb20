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

ParsedArgs parse(const char* command, const Syntax& syntax, const ValueList& args)
{
    ParsedArgs parsed;
    std::string error;
    if (!kernel::parseArguments(syntax, args, parsed, error))
        throw CommandError(std::string(command) + ": " + error);
    return parsed;
}

Syntax plainSyntax(unsigned objects)
{
    Syntax syntax;
    syntax.setObjects(Syntax::Objects::Strings, objects, objects);
    return syntax;
}

Value setToolTo(const ValueList& args)
{
    const ParsedArgs parsed = parse("setToolTo", plainSyntax(1), args);
    ToolBox::instance().setCurrent(kernel::toText(parsed.objects[0]));
    return {};
}

Value currentCtx(const ValueList& args)
{
    parse("currentCtx", plainSyntax(0), args);
    return ToolBox::instance().currentName();
}

Value ctxAbort(const ValueList& args)
{
    parse("ctxAbort", plainSyntax(0), args);
    ToolBox::instance().abort();
    return {};
}

Value ctxCompletion(const ValueList& args)
{
    parse("ctxCompletion", plainSyntax(0), args);
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
    const ParsedArgs parsed = parse("contextInfo", contextInfoSyntax(), args);
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
