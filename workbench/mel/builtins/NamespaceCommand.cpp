#include "mel/builtins/Builtin.h"
#include "mel/builtins/Subjects.h"

namespace mel {

using kernel::CommandError;
using kernel::Value;

namespace {

// ":set:inner" and "set:inner" are the same.
std::string nameOf(const std::string& text)
{
    return !text.empty() && text[0] == ':' ? text.substr(1) : text;
}

Value runNamespace(BuiltinCall& call)
{
    if (call.args.has("exists")) {
        const std::string name = nameOf(call.args.text("exists"));
        return int(name.empty() || call.scene.hasNamespace(name));
    }
    if (call.args.has("add")) {
        const std::string name = nameOf(call.args.text("add"));
        if (!kernel::Scene::isLegalName(name))
            throw CommandError("Invalid namespace name: " + name);
        if (call.scene.hasNamespace(name))
            throw CommandError("The namespace '" + name + "' already exists.");
        call.scene.addNamespace(name);
        return name;
    }
    if (call.args.has("removeNamespace")) {
        const std::string name = nameOf(call.args.text("removeNamespace"));
        if (!call.scene.hasNamespace(name))
            throw CommandError("No namespace matches name: " + name);
        if (!call.scene.isNamespaceEmpty(name))
            throw CommandError("The namespace '" + name + "' is not empty.");
        call.scene.removeNamespace(name);
    }
    return {};
}

}  // namespace

void addNamespaceCommand(kernel::Session& session)
{
    addBuiltin(session, "namespace",
               makeSyntax({{"exists", "ex", "s"}, {"add", "add", "s"}, {"removeNamespace", "rm", "s"}}), runNamespace);
}

}  // namespace mel
