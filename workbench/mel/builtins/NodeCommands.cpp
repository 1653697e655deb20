#include "mel/builtins/Builtin.h"
#include "mel/builtins/CreateNode.h"
#include "mel/builtins/Subjects.h"

#include <algorithm>
#include <iterator>
#include <set>

namespace mel {

using kernel::CommandError;
using kernel::NodePtr;
using kernel::Value;

namespace {

Value runCreateNode(BuiltinCall& call)
{
    const CreateNodeArguments arguments = parseCreateNode(call.all);
    kernel::NodeRequest request;
    request.type = arguments.type;
    request.name = arguments.name;
    request.parent = arguments.parent.empty() ? nullptr : call.scene.findOne(arguments.parent);
    request.shared = arguments.shared;
    const NodePtr node = kernel::createNode(call.session, request, call.edits());
    if (!arguments.skipSelect)
        call.apply(kernel::setSelectionEdit({node}));
    return call.scene.partialPath(*node);
}

Value runDelete(BuiltinCall& call)
{
    std::vector<NodePtr> nodes = call.nodesOrSelection();
    if (call.args.has("all")) {
        nodes.clear();
        for (const NodePtr& root : call.scene.roots()) {
            if (!root->startup && !root->referenced)
                nodes.push_back(root);
        }
    }
    if (!nodes.empty())
        call.apply(kernel::deleteNodesEdit(std::move(nodes)));
    return {};
}

Value runRename(BuiltinCall& call)
{
    const std::vector<std::string> names = call.objectNames();
    NodePtr node;
    if (names.size() == 2)
        node = call.scene.findOne(names[0]);
    else if (!call.scene.selection().empty())
        node = call.scene.selection().front();
    else
        throw CommandError("No object was specified");
    if (node->isReadOnly())
        throw CommandError("Cannot rename a read only node.");
    call.apply(kernel::renameNodeEdit(node, names.back()));
    return call.scene.partialPath(*node);
}

void addWithDescendants(const NodePtr& node, std::vector<NodePtr>& out)
{
    out.push_back(node);
    for (const NodePtr& child : node->children())
        addWithDescendants(child, out);
}

std::vector<NodePtr> nodesToSelect(const BuiltinCall& call)
{
    std::vector<NodePtr> nodes;
    if (call.args.has("all")) {
        for (const NodePtr& root : call.scene.roots()) {
            if (!root->startup)
                nodes.push_back(root);
        }
    } else if (!call.args.objects.empty()) {
        nodes = call.nodesOrSelection();
    } else if (call.args.has("hierarchy")) {
        nodes = call.scene.selection();
    }
    if (!call.args.has("hierarchy"))
        return nodes;
    std::vector<NodePtr> whole;
    for (const NodePtr& node : nodes)
        addWithDescendants(node, whole);
    return whole;
}

std::vector<NodePtr> joined(std::vector<NodePtr> first, const std::vector<NodePtr>& second)
{
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

std::vector<NodePtr> without(const std::vector<NodePtr>& nodes, const std::vector<NodePtr>& removed)
{
    const std::set<NodePtr> gone(removed.begin(), removed.end());
    std::vector<NodePtr> left;
    std::copy_if(nodes.begin(), nodes.end(), std::back_inserter(left),
                 [&](const NodePtr& node) { return gone.count(node) == 0; });
    return left;
}

// Each node once, where it stood first.
std::vector<NodePtr> withoutRepeats(const std::vector<NodePtr>& nodes)
{
    std::set<NodePtr> seen;
    std::vector<NodePtr> unique;
    std::copy_if(nodes.begin(), nodes.end(), std::back_inserter(unique),
                 [&](const NodePtr& node) { return seen.insert(node).second; });
    return unique;
}

std::vector<NodePtr> selectionAfter(const kernel::ParsedArgs& args, const std::vector<NodePtr>& before,
                                    const std::vector<NodePtr>& named)
{
    if (args.has("clear"))
        return {};
    if (args.has("deselect"))
        return without(before, named);
    if (args.has("toggle"))
        return joined(without(before, named), without(named, before));
    if (args.has("add"))
        return joined(before, named);
    if (args.has("addFirst"))
        return joined(named, before);
    return named;
}

Value runSelect(BuiltinCall& call)
{
    const std::vector<NodePtr> named = nodesToSelect(call);
    // An empty list acts on nothing; only -clear empties the selection.
    if (!named.empty() || call.args.has("clear"))
        call.apply(kernel::setSelectionEdit(withoutRepeats(selectionAfter(call.args, call.scene.selection(), named))));
    return {};
}

}  // namespace

void addNodeCommands(kernel::Session& session)
{
    addRawBuiltin(session, "createNode", runCreateNode);
    addBuiltin(session, "delete", makeSyntax({{"all", "all"}}), runDelete);
    addBuiltin(session, "rename", makeSyntax({{"ignoreShape", "is"}}, Modes::Create, 1, 2), runRename);
    addBuiltin(session, "select",
               makeSyntax({{"replace", "r"},
                           {"add", "add"},
                           {"addFirst", "af"},
                           {"deselect", "d"},
                           {"toggle", "tgl"},
                           {"clear", "cl"},
                           {"all", "all"},
                           {"hierarchy", "hi"},
                           {"noExpand", "ne"},
                           {"visible", "vis"}}),
               runSelect);
}

}  // namespace mel
