#include "mel/builtins/CreateNode.h"

#include "mel/builtins/Builtin.h"

namespace mel {

CreateNodeArguments parseCreateNode(const kernel::ValueList& args)
{
    static const kernel::Syntax syntax = makeSyntax(
        {{"name", "n", "s"}, {"parent", "p", "s"}, {"shared", "s"}, {"skipSelect", "ss"}}, Modes::Create, 1, 1);
    const kernel::ParsedArgs parsed = kernel::parsedOrThrow(syntax, args);
    CreateNodeArguments arguments;
    arguments.type = kernel::toText(parsed.objects[0]);
    arguments.name = parsed.text("name");
    arguments.parent = parsed.text("parent");
    arguments.shared = parsed.has("shared");
    arguments.skipSelect = parsed.has("skipSelect");
    return arguments;
}

}  // namespace mel
