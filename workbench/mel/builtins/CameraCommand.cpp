#include "mel/builtins/Builtin.h"
#include "mel/builtins/Placement.h"
#include "mel/builtins/Subjects.h"

#include <algorithm>

namespace mel {

using kernel::AttributePtr;
using kernel::CommandError;
using kernel::NodePtr;
using kernel::Value;

namespace {

struct AttributeFlag {
    FlagRow flag;
    const char* attribute;  ///< of the shape, or of the transform when `ofTransform`
    bool ofTransform = false;
};

// Flags that stand for one attribute (a triple for position and rotation), in the order in which they are applied.
const AttributeFlag kAttributeFlags[] = {
    {{"orthographic", "o", "b"}, "orthographic"},
    {{"orthographicWidth", "ow", "f"}, "orthographicWidth"},
    {{"position", "p", "fff"}, "translate", true},
    {{"rotation", "rot", "fff"}, "rotate", true},
    {{"focalLength", "fl", "f"}, "focalLength"},
    {{"horizontalFilmAperture", "hfa", "f"}, "horizontalFilmAperture"},
    {{"verticalFilmAperture", "vfa", "f"}, "verticalFilmAperture"},
    {{"nearClipPlane", "ncp", "f"}, "nearClipPlane"},
    {{"farClipPlane", "fcp", "f"}, "farClipPlane"},
    {{"filmFit", "ff", "s"}, "filmFit"},
    {{"overscan", "ovr", "f"}, "overscan"},
    {{"centerOfInterest", "coi", "f"}, "centerOfInterest"},
    {{"panZoomEnabled", "pze", "b"}, "panZoomEnabled"},
    {{"horizontalPan", "hpn", "f"}, "horizontalPan"},
    {{"verticalPan", "vpn", "f"}, "verticalPan"},
    {{"zoom", "zom", "f"}, "zoom"},
    {{"homeCommand", "hc", "s"}, "homeCommand"},
    {{"journalCommand", "jc", "b"}, "journalCommand"},
    {{"displayResolution", "dr", "b"}, "displayResolution"},
    {{"displayFilmGate", "dfg", "b"}, "displayFilmGate"},
};

const char* const kAxes[] = {"X", "Y", "Z"};
const char* const kPlacement[] = {"translate", "rotate", "scale"};

struct Camera {
    NodePtr transform;
    NodePtr shape;
};

/// By transform or shape.
Camera cameraOf(const kernel::Scene& scene, const std::string& name)
{
    const NodePtr node = scene.findOne(name);
    if (node->type().isA("camera"))
        return {node->parent() ? node->parent()->shared_from_this() : nullptr, node};
    for (const NodePtr& child : node->children()) {
        if (child->type().isA("camera"))
            return {node, child};
    }
    throw CommandError("camera: Object '" + name + "' is not a camera.");
}

void setEnum(BuiltinCall& call, const NodePtr& node, const AttributePtr& attribute, const std::string& word)
{
    const auto found = std::find(attribute->enumNames.begin(), attribute->enumNames.end(), word);
    if (found == attribute->enumNames.end())
        throw CommandError("camera: Invalid value '" + word + "' for " + attribute->longName + ".");
    setNumber(call, node, attribute->longName, double(found - attribute->enumNames.begin()), "camera");
}

void applyFlag(BuiltinCall& call, const Camera& camera, const AttributeFlag& row)
{
    const NodePtr& node = row.ofTransform ? camera.transform : camera.shape;
    const char* const flag = row.flag.longName;
    if (row.ofTransform) {
        for (unsigned i = 0; i < 3; ++i)
            setNumber(call, node, std::string(row.attribute) + kAxes[i], call.args.number(flag, i), "camera");
        return;
    }
    const AttributePtr attribute = node->attribute(row.attribute);
    if (attribute->kind == kernel::ValueKind::Enum)
        setEnum(call, node, attribute, call.args.text(flag));
    else if (attribute->kind == kernel::ValueKind::String)
        call.apply(kernel::setValueEdit(node, attribute, call.args.text(flag)));
    else
        setNumber(call, node, row.attribute, call.args.number(flag), "camera");
}

void lockPlacement(BuiltinCall& call, const NodePtr& transform, bool locked)
{
    for (const char* triple : kPlacement) {
        for (const char* axis : kAxes) {
            const AttributePtr attribute = transform->attribute(std::string(triple) + axis);
            kernel::PlugFlags flags = transform->flags(*attribute);
            flags.locked = locked;
            call.apply(kernel::setFlagsEdit(transform, attribute, flags));
        }
    }
}

void applyFlags(BuiltinCall& call, const Camera& camera)
{
    for (const AttributeFlag& row : kAttributeFlags) {
        if (call.args.has(row.flag.longName))
            applyFlag(call, camera, row);
    }
    if (call.args.has("startupCamera")) {
        const bool on = call.args.integer("startupCamera") != 0;
        for (const NodePtr& node : {camera.transform, camera.shape}) {
            call.apply(functionEdit([node, on](kernel::Scene&) { node->startup = on; },
                                    [node, was = node->startup](kernel::Scene&) { node->startup = was; }));
        }
    }
    if (call.args.has("lockTransform"))
        lockPlacement(call, camera.transform, call.args.integer("lockTransform") != 0);
}

Value queryFlag(const Camera& camera, const AttributeFlag& row)
{
    const kernel::Node& node = row.ofTransform ? *camera.transform : *camera.shape;
    if (row.ofTransform) {
        kernel::DoubleArray values;
        for (const char* axis : kAxes)
            values.push_back(node.number(std::string(row.attribute) + axis));
        return values;
    }
    const AttributePtr attribute = node.attribute(row.attribute);
    const double number = node.number(row.attribute);
    switch (attribute->kind) {
    case kernel::ValueKind::Enum: return attribute->enumNames.at(std::size_t(number));
    case kernel::ValueKind::String: return node.text(row.attribute);
    case kernel::ValueKind::Bool: return int(number);
    default: return number;
    }
}

Value query(const BuiltinCall& call, const Camera& camera)
{
    for (const AttributeFlag& row : kAttributeFlags) {
        if (call.args.has(row.flag.longName))
            return queryFlag(camera, row);
    }
    if (call.args.has("startupCamera"))
        return int(camera.shape->startup);
    if (call.args.has("lockTransform"))
        return int(camera.transform->flags(*camera.transform->attribute("translateX")).locked);
    if (call.args.has("name"))
        return camera.transform->name();
    return {};
}

// -name shot gives shot1 and shotShape1: the number is always there.
Camera create(BuiltinCall& call)
{
    const std::string stem = call.args.text("name", 0, "camera");
    const NodePtr transform = call.scene.makeNode(*call.session.nodeTypes.find("transform"), stem + "#");
    call.apply(kernel::createNodeEdit(transform, nullptr));
    const std::string& name = transform->name();
    const std::size_t digits = name.find_last_not_of("0123456789") + 1;
    const NodePtr shape = call.scene.makeNode(*call.session.nodeTypes.find("camera"),
                                              name.substr(0, digits) + "Shape" + name.substr(digits));
    call.apply(kernel::createNodeEdit(shape, transform));
    return {transform, shape};
}

Value runCamera(BuiltinCall& call)
{
    if (!call.args.query && !call.args.edit) {
        const Camera camera = create(call);
        applyFlags(call, camera);
        call.apply(kernel::setSelectionEdit({camera.transform}));
        return kernel::StringArray{call.scene.partialPath(*camera.transform), call.scene.partialPath(*camera.shape)};
    }
    std::string name;
    if (!call.args.objects.empty())
        name = call.objectNames().front();
    else if (!call.scene.selection().empty())
        name = call.scene.fullPath(*call.scene.selection().front());
    else
        throw CommandError("No object was specified");
    const Camera camera = cameraOf(call.scene, name);
    if (call.args.query)
        return query(call, camera);
    applyFlags(call, camera);
    if (call.args.has("name"))
        call.apply(kernel::renameNodeEdit(camera.transform, call.args.text("name")));
    return {};
}

}  // namespace

void addCameraCommand(kernel::Session& session)
{
    std::vector<FlagRow> flags = {{"name", "n", "s"}, {"startupCamera", "sc", "b"}, {"lockTransform", "lt", "b"}};
    for (const AttributeFlag& row : kAttributeFlags)
        flags.push_back(row.flag);
    addBuiltin(session, "camera", makeSyntax(flags, Modes::QueryAndEdit, 0, 1), runCamera);
}

}  // namespace mel
