#include "kernel/CreateNode.h"

#include "kernel/Session.h"

#include <utility>

namespace kernel {

namespace {

/// absentParent: remembered by a node without a parent.
NodePtr attached(Scene& scene, const NodePtr& node, const NodePtr& parent, const std::string& absentParent,
                 EditList& edits)
{
    EditPtr edit = createNodeEdit(node, parent);
    edit->redo(scene);
    edits.add(std::move(edit));
    if (!parent && node->type().isDag())
        node->absentParent = absentParent;
    return node;
}

}  // namespace

NodePtr createNode(Session& session, const NodeRequest& request, EditList& edits)
{
    Scene& scene = session.scene;
    const NodeType* type = session.nodeTypes.find(request.type);
    if (!type && !request.keepUnknown)
        throw CommandError("Unknown object type: " + request.type);
    if (!type) {
        const NodePtr node =
            scene.makeUnknownNode(request.type, request.name, request.parent || !request.absentParent.empty());
        node->shared = request.shared;
        return attached(scene, node, request.parent, request.absentParent, edits);
    }
    if (request.shared && !request.name.empty()) {
        const NodePtr existing = scene.findOrNull(request.name);
        if (existing && &existing->type() == type)
            return existing;
    }
    NodePtr parent = request.parent;
    std::string name = request.name.empty() ? request.type + "#" : request.name;
    if (type->isShape() && !parent) {
        parent = attached(scene, scene.makeNode(*session.nodeTypes.find("transform"), request.type + "#"), nullptr,
                          request.absentParent, edits);
        if (request.name.empty())
            name = Scene::shapeName(parent->name());
    }
    const NodePtr node = scene.makeNode(*type, name);
    node->shared = request.shared;
    return attached(scene, node, parent, request.absentParent, edits);
}

}  // namespace kernel
