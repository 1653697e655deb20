#include "mel/builtins/CreateNode.h"

#include "mel/builtins/Builtin.h"

#include <utility>

namespace mel {

using kernel::CommandError;
using kernel::NodePtr;

namespace {

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
    const kernel::ParsedArgs parsed = kernel::parsedOrThrow(syntax, args);
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
    NodePtr parent = request.parent.empty() ? nullptr : scene.findOne(request.parent);
    if (!request.unknownType.empty()) {
        const NodePtr node = scene.makeUnknownNode(request.unknownType, request.name, parent != nullptr);
        node->shared = request.shared;
        return attached(scene, node, parent, edits);
    }
    const kernel::NodeType* type = session.nodeTypes.find(request.type);
    if (!type)
        throw CommandError("Unknown object type: " + request.type);
    if (request.shared && !request.name.empty()) {
        const NodePtr existing = scene.findOrNull(request.name);
        if (existing && &existing->type() == type)
            return existing;
    }
    std::string name = request.name.empty() ? request.type + "#" : request.name;
    if (type->isShape() && !parent) {
        parent =
            attached(scene, scene.makeNode(*session.nodeTypes.find("transform"), request.type + "#"), nullptr, edits);
        if (request.name.empty())
            name = shapeName(parent->name());
    }
    const NodePtr node = scene.makeNode(*type, name);
    node->shared = request.shared;
    return attached(scene, node, parent, edits);
}

}  // namespace mel
