#include "kernel/Keying.h"

#include "kernel/Session.h"

#include <utility>

namespace kernel {

namespace {

void apply(Session& session, EditPtr edit, EditList& edits)
{
    edit->redo(session.scene);
    edits.add(std::move(edit));
}

std::string plugName(const Plug& plug)
{
    return plug.node->name() + '.' + plug.attribute->longName;
}

/// "ball_translateX" in the root namespace, whatever namespace the node is in.
NodePtr makeCurve(Session& session, const Plug& plug, EditList& edits)
{
    const NodeType& type = *session.nodeTypes.find(curveTypeFor(plug.attribute->kind));
    const std::string& name = plug.node->name();
    const NodePtr curve =
        session.scene.makeNode(type, name.substr(name.rfind(':') + 1) + '_' + plug.attribute->longName);
    curve->setValue(*type.attribute("tangentType"), double(kLinearTangent));
    curve->setValue(*type.attribute("weightedTangents"), 0.0);
    apply(session, createNodeEdit(curve, nullptr), edits);
    return curve;
}

void refuseLocked(const Plug& plug)
{
    if (isLockedPlug(*plug.node, *plug.attribute))
        throw CommandError("The attribute '" + plugName(plug) + "' is locked or connected and cannot be modified.");
}

void refuseFixedKeys(const Node& curve)
{
    if (curve.referenced)
        throw CommandError("The keys of '" + curve.name() + "' belong to a referenced file and cannot be changed.");
    for (const Plug& driven : curve.drivenPlugs())
        refuseLocked(driven);
}

bool hasNothingBetween(ValueKind kind)
{
    return kind == ValueKind::Bool || kind == ValueKind::Enum;
}

}  // namespace

bool isCurveOutput(const Plug& plug)
{
    return plug.attribute && plug.node->curve() && plug.attribute->longName == "output";
}

bool canBeAnimated(const Node& node, const AttributeSpec& attribute)
{
    // The scene's time is what curves follow.
    return isNumber(attribute.kind) && attribute.writable && attribute.connectable && !node.curve()
        && node.type().name != "time";
}

void refuseUnkeyable(const Plug& plug)
{
    if (!canBeAnimated(*plug.node, *plug.attribute))
        throw CommandError("The attribute '" + plugName(plug) + "' cannot be animated.");
    refuseLocked(plug);
}

const char* curveTypeFor(ValueKind kind)
{
    switch (kind) {
    case ValueKind::Distance: return "animCurveTL";
    case ValueKind::Angle: return "animCurveTA";
    case ValueKind::Time: return "animCurveTT";
    default: return "animCurveTU";
    }
}

void setKey(Session& session, const Plug& plug, const KeyRequest& request, EditList& edits)
{
    refuseUnkeyable(plug);
    const NodePtr known = plug.node->curveOf(*plug.attribute);
    const NodePtr curve = known ? known : makeCurve(session, plug, edits);
    refuseFixedKeys(*curve);
    const CurveKey* const before = curve->curve()->keyAt(request.ticks);
    const int usualOut = hasNothingBetween(plug.attribute->kind) ? kStepTangent : kLinearTangent;
    const CurveKey key{request.ticks, request.value,
                       request.inTangent.value_or(before ? before->inTangent : kLinearTangent),
                       request.outTangent.value_or(before ? before->outTangent : usualOut)};
    apply(session, setCurveKeyEdit(curve, key), edits);
    if (!known)
        connect(session, plug, curve, edits);
}

void changeKeys(Session& session, const NodePtr& curve, const AnimCurve& keys, EditList& edits)
{
    refuseFixedKeys(*curve);
    apply(session, setCurveKeysEdit(curve, keys), edits);
}

void deleteCurves(Session& session, const std::vector<NodePtr>& curves, EditList& edits)
{
    for (const NodePtr& curve : curves)
        refuseFixedKeys(*curve);
    apply(session, deleteNodesEdit(curves), edits);
}

void connect(Session& session, const Plug& plug, const NodePtr& curve, EditList& edits)
{
    refuseUnkeyable(plug);
    const NodePtr before = plug.node->curveOf(*plug.attribute);
    if (before && before->referenced && plug.node->referenced)
        throw CommandError("What drives '" + plugName(plug) + "' belongs to a referenced file and cannot be changed.");
    apply(session, setCurveEdit(plug.node, plug.attribute, curve), edits);
}

}  // namespace kernel
