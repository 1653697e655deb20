#include "mel/builtins/Builtin.h"
#include "mel/builtins/Placement.h"
#include "mel/builtins/Subjects.h"

namespace mel {

using kernel::CommandError;
using kernel::NodePtr;
using kernel::Value;

namespace {

void moveUnder(BuiltinCall& call, const NodePtr& node, const NodePtr& parent)
{
    const kernel::Matrix4 world = node->worldMatrix();
    call.apply(kernel::parentNodeEdit(node, parent));
    if (call.args.has("relative") || !node->type().isTransform())
        return;
    const kernel::Matrix4 above = parent ? parent->worldMatrix() : kernel::Matrix4();
    place(call, node, world * kernel::inverse(above));
}

Value runParent(BuiltinCall& call)
{
    const bool toWorld = call.args.has("world");
    std::vector<NodePtr> nodes = call.nodesOrSelection();
    NodePtr parent;
    if (!toWorld) {
        if (nodes.size() < 2)
            throw CommandError("Incorrect number of objects specified");
        parent = nodes.back();
        nodes.pop_back();
        if (!parent->type().isTransform())
            throw CommandError("Objects can only be parented to transforms: " + parent->name());
    }
    kernel::StringArray names;
    for (const NodePtr& node : nodes) {
        if (!node->type().isDag())
            throw CommandError("Only DAG objects can have a parent: " + node->name());
        if (node->startup || node->referenced)
            throw CommandError("Cannot parent a read only node.");
        if (node->type().isShape() && (!call.args.has("shape") || toWorld))
            throw CommandError("A shape needs -shape and a transform to be parented to: " + node->name());
        moveUnder(call, node, parent);
        names.push_back(call.scene.partialPath(*node));
    }
    return names;
}

}  // namespace

void addParentCommand(kernel::Session& session)
{
    addBuiltin(session, "parent",
               makeSyntax({{"world", "w"},
                           {"shape", "s"},
                           {"relative", "r"},
                           {"absolute", "a"},
                           {"addObject", "add"},
                           {"noConnections", "nc"}}),
               runParent);
}

}  // namespace mel
