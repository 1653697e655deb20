#include "mel/builtins/Builtin.h"
#include "mel/builtins/Subjects.h"

namespace mel {

using kernel::CommandError;
using kernel::NodePtr;
using kernel::Value;

namespace {

struct Plane {
    NodePtr transform;
    NodePtr shape;
};

/// The node itself or the first shape of the type under it; null for none.
NodePtr shapeOf(const NodePtr& node, const char* type)
{
    if (node->type().isA(type))
        return node;
    for (const NodePtr& child : node->children()) {
        if (child->type().isA(type))
            return child;
    }
    return nullptr;
}

NodePtr cameraTransform(const BuiltinCall& call)
{
    if (!call.args.has("camera"))
        throw CommandError("imagePlane: A camera must be named with -camera.");
    const std::string name = call.args.text("camera");
    const NodePtr shape = shapeOf(call.scene.findOne(name), "camera");
    if (!shape || !shape->parent())
        throw CommandError("imagePlane: Object '" + name + "' is not a camera.");
    return shape->parent()->shared_from_this();
}

Plane planeOf(const BuiltinCall& call)
{
    NodePtr node;
    if (!call.args.objects.empty())
        node = call.scene.findOne(call.objectNames().front());
    else if (!call.scene.selection().empty())
        node = call.scene.selection().front();
    else
        throw CommandError("No object was specified");
    const NodePtr shape = shapeOf(node, "imagePlane");
    if (!shape || !shape->parent())
        throw CommandError("imagePlane: Object '" + node->name() + "' is not an image plane.");
    return {shape->parent()->shared_from_this(), shape};
}

Plane create(BuiltinCall& call)
{
    const NodePtr camera = cameraTransform(call);
    const std::string name = call.args.text("name", 0, "imagePlane#");
    const NodePtr transform = call.scene.makeNode(*call.session.nodeTypes.find("transform"), name);
    call.apply(kernel::createNodeEdit(transform, camera));
    const NodePtr shape =
        call.scene.makeNode(*call.session.nodeTypes.find("imagePlane"), kernel::Scene::shapeName(transform->name()));
    call.apply(kernel::createNodeEdit(shape, transform));
    return {transform, shape};
}

void set(BuiltinCall& call, const Plane& plane, const char* attribute, kernel::PlugValue value)
{
    call.apply(kernel::setValueEdit(plane.shape, plane.shape->attribute(attribute), std::move(value)));
}

// Flags that stand for one side of the picture on the film back, in inches.
const struct {
    FlagRow flag;
    const char* attribute;
} kSizes[] = {{{"width", "w", "f"}, "sizeX"}, {{"height", "h", "f"}, "sizeY"}};

void applyFlags(BuiltinCall& call, const Plane& plane)
{
    if (call.args.has("fileName"))
        set(call, plane, "imageName", call.args.text("fileName"));
    for (const auto& row : kSizes) {
        if (call.args.has(row.flag.longName))
            set(call, plane, row.attribute, call.args.number(row.flag.longName));
    }
}

/// The camera's transform above a plane; null for one that stands elsewhere.
kernel::Node* cameraAbove(const Plane& plane)
{
    kernel::Node* above = plane.transform->parent();
    while (above && !shapeOf(above->shared_from_this(), "camera"))
        above = above->parent();
    return above;
}

Value query(const BuiltinCall& call, const Plane& plane)
{
    if (call.args.has("fileName"))
        return plane.shape->text("imageName");
    for (const auto& row : kSizes) {
        if (call.args.has(row.flag.longName))
            return plane.shape->number(row.attribute);
    }
    if (call.args.has("name"))
        return plane.transform->name();
    if (call.args.has("camera")) {
        const kernel::Node* const camera = cameraAbove(plane);
        return camera ? call.scene.partialPath(*camera) : std::string();
    }
    if (call.args.has("showInAllViews"))
        return 0;
    return {};
}

void edit(BuiltinCall& call, const Plane& plane)
{
    applyFlags(call, plane);
    if (call.args.has("camera"))
        call.apply(kernel::parentNodeEdit(plane.transform, cameraTransform(call)));
    if (call.args.has("name"))
        call.apply(kernel::renameNodeEdit(plane.transform, call.args.text("name")));
}

Value runImagePlane(BuiltinCall& call)
{
    if (call.args.query)
        return query(call, planeOf(call));
    if (call.args.edit) {
        edit(call, planeOf(call));
        return {};
    }
    const Plane plane = create(call);
    applyFlags(call, plane);
    call.apply(kernel::setSelectionEdit({plane.transform}));
    return kernel::StringArray{call.scene.partialPath(*plane.transform), call.scene.partialPath(*plane.shape)};
}

}  // namespace

void addImagePlaneCommand(kernel::Session& session)
{
    // A plane is seen through its own camera only, whatever -showInAllViews says.
    std::vector<FlagRow> flags = {
        {"camera", "c", "s"}, {"name", "n", "s"}, {"fileName", "fn", "s"}, {"showInAllViews", "sia", "b"}};
    for (const auto& row : kSizes)
        flags.push_back(row.flag);
    addBuiltin(session, "imagePlane", makeSyntax(flags, Modes::QueryAndEdit, 0, 1), runImagePlane);
}

}  // namespace mel
