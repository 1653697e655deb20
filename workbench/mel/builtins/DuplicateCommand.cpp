#include "kernel/DuplicateNodes.h"
#include "mel/builtins/Builtin.h"
#include "mel/builtins/Subjects.h"

namespace mel {

using kernel::CommandError;
using kernel::NodePtr;
using kernel::Value;

namespace {

Value runDuplicate(BuiltinCall& call)
{
    const std::vector<NodePtr> nodes = call.nodesOrSelection();
    if (nodes.empty())
        throw CommandError("No object was specified");
    const std::vector<NodePtr> copies =
        kernel::duplicateNodes(call.session, nodes, call.args.text("name"), call.edits());
    call.apply(kernel::setSelectionEdit(copies));
    kernel::StringArray names;
    for (const NodePtr& copy : copies)
        names.push_back(call.scene.partialPath(*copy));
    return names;
}

}  // namespace

void addDuplicateCommand(kernel::Session& session)
{
    addBuiltin(session, "duplicate", makeSyntax({{"name", "n", "s"}, {"returnRootsOnly", "rr"}}), runDuplicate);
}

}  // namespace mel
