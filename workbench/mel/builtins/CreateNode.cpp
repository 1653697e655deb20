#include "mel/builtins/CreateNode.h"

#include "mel/builtins/Builtin.h"

#include <utility>

namespace mel {

using kernel::CommandError;
using kernel::NodePtr;

namespace {

const kernel::NodeType& typeOf(const kernel::Session& session, const NodeRequest& request)
{
    const bool isUnknown = !request.unknownType.empty();
    const std::string name = !isUnknown ? request.type : request.parent.empty() ? "unknown" : "unknownDag";
    const kernel::NodeType* type = session.nodeTypes.find(name);
    if (!type)
        throw CommandError("Unknown object type: " + name);
    return *type;
}

NodePtr attached(kernel::Scene& scene, const NodePtr& node, const NodePtr& parent, kernel::EditList& edits)
{
    kernel::EditPtr edit = kernel::createNodeEdit(node, parent);
    edit->redo(scene);
    edits.add(std::move(edit));
    return node;
}

// sketch1 has the shape sketchShape1.
std::string shapeName(const std::string& transformName)
{
    const std::size_t digits = transformName.find_last_not_of("0123456789") + 1;
    return transformName.substr(0, digits) + "Shape" + transformName.substr(digits);
}

}  // namespace

NodeRequest parseCreateNode(const kernel::ValueList& args)
{
    static const kernel::Syntax syntax = makeSyntax(
        {{"name", "n", "s"}, {"parent", "p", "s"}, {"shared", "s"}, {"skipSelect", "ss"}}, Modes::Create, 1, 1);
    kernel::ParsedArgs parsed;
    std::string error;
    if (!kernel::parseArguments(syntax, args, parsed, error))
        throw CommandError(error);
    NodeRequest request;
    request.type = kernel::toText(parsed.objects[0]);
    request.name = parsed.text("name");
    request.parent = parsed.text("parent");
    request.shared = parsed.has("shared");
    request.skipSelect = parsed.has("skipSelect");
    return request;
}

NodePtr createNode(kernel::Session& session, const NodeRequest& request, kernel::EditList& edits)
{
    kernel::Scene& scene = session.scene;
    const kernel::NodeType& type = typeOf(session, request);
    if (request.shared && !request.name.empty()) {
        const NodePtr existing = scene.findOrNull(request.name);
        if (existing && &existing->type() == &type)
            return existing;
    }
    NodePtr parent = request.parent.empty() ? nullptr : scene.findOne(request.parent);
    const std::string& typeName = request.unknownType.empty() ? request.type : request.unknownType;
    std::string name = request.name;
    if (type.isShape() && !parent) {
        parent = attached(scene, scene.makeNode(*session.nodeTypes.find("transform"), typeName + "1"), nullptr, edits);
        if (name.empty())
            name = shapeName(parent->name());
    }
    if (parent && !type.isDag())
        throw CommandError("Only DAG objects can have a parent: " + typeName);
    const NodePtr node = scene.makeNode(type, name.empty() ? typeName + "1" : name);
    node->unknownType = request.unknownType;
    node->shared = request.shared;
    return attached(scene, node, parent, edits);
}

}  // namespace mel
