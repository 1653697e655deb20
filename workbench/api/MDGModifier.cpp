#include <maya/MDagModifier.h>

#include "api/Handles.h"
#include "api/NodeMaking.h"
#include "api/PlugValues.h"
#include "kernel/Edits.h"
#include "kernel/Session.h"

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// The changes in order; those before `done` are in the scene.
struct MDGModifier::Steps {
    std::vector<kernel::EditPtr> edits;
    std::size_t done = 0;

    MStatus add(kernel::EditPtr edit)
    {
        edits.push_back(std::move(edit));
        return MStatus::kSuccess;
    }
    MStatus redo(kernel::Session& session);
    MStatus undo(kernel::Session& session, std::size_t downTo);
};

MStatus MDGModifier::Steps::redo(kernel::Session& session)
{
    const std::size_t before = done;
    try {
        for (; done < edits.size(); ++done)
            edits[done]->redo(session.scene);
        return MStatus::kSuccess;
    } catch (const kernel::CommandError& error) {
        if (*error.what())
            session.output.error(error.what());
        undo(session, before);
        return MStatus::kFailure;
    }
}

MStatus MDGModifier::Steps::undo(kernel::Session& session, std::size_t downTo)
{
    try {
        for (; done > downTo; --done)
            edits[done - 1]->undo(session.scene);
        return MStatus::kSuccess;
    } catch (const kernel::CommandError& error) {
        if (*error.what())
            session.output.error(error.what());
        return MStatus::kFailure;
    }
}

namespace {

kernel::Session& session()
{
    return kernel::Session::current();
}

/// A null edit when the plug is gone, locked, of another kind or the number out of its range.
kernel::EditPtr numberEdit(const MPlug& plug, double number)
{
    const auto node = api::nodeOf(plug);
    const auto attribute = api::attributeOf(plug);
    if (!node || !attribute || !kernel::isNumber(attribute->kind) || kernel::isLockedPlug(*node, *attribute))
        return nullptr;
    const auto held = api::toHeldNumber(*attribute, number);
    return held ? kernel::setValueEdit(node, attribute, *held) : nullptr;
}

}  // namespace

MDGModifier::MDGModifier() : m_steps(new Steps) {}
MDGModifier::~MDGModifier() = default;

namespace {

const kernel::NodeType* typeOutsideDag(const kernel::NodeType* type, MStatus* status)
{
    const bool fits = type && !type->isDag();
    api::report(status, fits ? MStatus::kSuccess : MStatus::kInvalidParameter);
    return fits ? type : nullptr;
}

}  // namespace

MObject MDGModifier::createNode(const MTypeId& typeId, MStatus* ReturnStatus)
{
    const auto* type = typeOutsideDag(api::nodeType(typeId), ReturnStatus);
    return type ? queueNode(*type, MObject()) : MObject();
}

MObject MDGModifier::createNode(const MString& typeName, MStatus* ReturnStatus)
{
    const auto* type = typeOutsideDag(api::nodeType(typeName), ReturnStatus);
    return type ? queueNode(*type, MObject()) : MObject();
}

MStatus MDGModifier::deleteNode(const MObject& node)
{
    const auto target = api::nodeOf(node);
    return target ? m_steps->add(kernel::deleteNodesEdit({target})) : MStatus(MStatus::kInvalidParameter);
}

MStatus MDGModifier::renameNode(const MObject& node, const MString& newName)
{
    const auto target = api::nodeOf(node);
    if (!target || newName.isEmpty())
        return MStatus::kInvalidParameter;
    return m_steps->add(kernel::renameNodeEdit(target, api::toKernel(newName)));
}

MStatus MDGModifier::newPlugValue(const MPlug& plug, MObject& value)
{
    const auto node = api::nodeOf(plug);
    const auto attribute = api::attributeOf(plug);
    const auto data = api::dataOf(value);
    if (!node || !attribute || !data || data->typeName() != attribute->customType)
        return MStatus::kInvalidParameter;
    return m_steps->add(kernel::setValueEdit(node, attribute, data));
}

MStatus MDGModifier::newPlugValueBool(const MPlug& plug, bool value)
{
    return newPlugValueDouble(plug, value);
}

MStatus MDGModifier::newPlugValueInt(const MPlug& plug, int value)
{
    return newPlugValueDouble(plug, value);
}

MStatus MDGModifier::newPlugValueShort(const MPlug& plug, short value)
{
    return newPlugValueDouble(plug, value);
}

MStatus MDGModifier::newPlugValueFloat(const MPlug& plug, float value)
{
    return newPlugValueDouble(plug, value);
}

MStatus MDGModifier::newPlugValueDouble(const MPlug& plug, double value)
{
    auto edit = numberEdit(plug, value);
    return edit ? m_steps->add(std::move(edit)) : MStatus(MStatus::kInvalidParameter);
}

MStatus MDGModifier::newPlugValueString(const MPlug& plug, const MString& value)
{
    const auto node = api::nodeOf(plug);
    const auto attribute = api::attributeOf(plug);
    if (!node || !attribute || attribute->kind != kernel::ValueKind::String || kernel::isLockedPlug(*node, *attribute))
        return MStatus::kInvalidParameter;
    return m_steps->add(kernel::setValueEdit(node, attribute, api::toKernel(value)));
}

MStatus MDGModifier::commandToExecute(const MString&)
{
    return MStatus::kNotImplemented;
}

MStatus MDGModifier::setNodeLockState(const MObject&, bool)
{
    return MStatus::kNotImplemented;
}

MStatus MDGModifier::connect(const MPlug&, const MPlug&)
{
    return MStatus::kNotImplemented;
}

MStatus MDGModifier::disconnect(const MPlug&, const MPlug&)
{
    return MStatus::kNotImplemented;
}

MStatus MDGModifier::addAttribute(const MObject&, const MObject&)
{
    return MStatus::kNotImplemented;
}

MStatus MDGModifier::removeAttribute(const MObject&, const MObject&)
{
    return MStatus::kNotImplemented;
}

MStatus MDGModifier::doIt()
{
    return m_steps->redo(session());
}

MStatus MDGModifier::undoIt()
{
    return m_steps->undo(session(), 0);
}

MObject MDGModifier::queueNode(const kernel::NodeType& type, const MObject& parent)
{
    const auto made = api::makeNode(type, api::nodeOf(parent), {});
    m_steps->add(kernel::createNodeEdit(made.top(), made.parent));
    if (made.transform)
        m_steps->add(kernel::createNodeEdit(made.node, made.transform));
    return api::toObject(made.top());
}

MStatus MDGModifier::queueParent(const MObject& node, const MObject& newParent)
{
    const auto moved = api::nodeOf(node);
    const auto parent = api::nodeOf(newParent);
    const bool knowsParent = parent ? parent->type().isTransform() : newParent.isNull() || api::isWorld(newParent);
    if (!moved || !moved->type().isDag() || !knowsParent || (moved->type().isShape() && !parent))
        return MStatus::kInvalidParameter;
    return m_steps->add(kernel::parentNodeEdit(moved, parent));
}

MDagModifier::MDagModifier() = default;
MDagModifier::~MDagModifier() = default;

namespace {

const kernel::NodeType* typeInDag(const kernel::NodeType* type, const MObject& parent, MStatus* status)
{
    const auto node = api::nodeOf(parent);
    const bool knowsParent = node ? node->type().isTransform() : parent.isNull() || api::isWorld(parent);
    const bool fits = type && type->isDag() && knowsParent;
    api::report(status, fits ? MStatus::kSuccess : MStatus::kInvalidParameter);
    return fits ? type : nullptr;
}

}  // namespace

MObject MDagModifier::createNode(const MTypeId& typeId, const MObject& parent, MStatus* ReturnStatus)
{
    const auto* type = typeInDag(api::nodeType(typeId), parent, ReturnStatus);
    return type ? queueNode(*type, parent) : MObject();
}

MObject MDagModifier::createNode(const MString& typeName, const MObject& parent, MStatus* ReturnStatus)
{
    const auto* type = typeInDag(api::nodeType(typeName), parent, ReturnStatus);
    return type ? queueNode(*type, parent) : MObject();
}

MStatus MDagModifier::reparentNode(const MObject& node, const MObject& newParent)
{
    return queueParent(node, newParent);
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
