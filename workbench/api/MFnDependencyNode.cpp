#include <maya/MFnDependencyNode.h>

#include "api/Handles.h"
#include "api/NodeMaking.h"
#include "kernel/Session.h"

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

using api::nodeOf;

kernel::Scene& scene()
{
    return kernel::Session::current().scene;
}

}  // namespace

MFnDependencyNode::MFnDependencyNode() = default;

MFnDependencyNode::MFnDependencyNode(MObject& object, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, MFnBase::setObject(object).statusCode());
}

MFnDependencyNode::MFnDependencyNode(const MObject& object, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, MFnBase::setObject(object).statusCode());
}

MFn::Type MFnDependencyNode::type() const
{
    return MFn::kDependencyNode;
}

namespace {

/// Nodes of the DAG are made by the DAG set, which knows where they go.
MObject createOutsideDag(MFnDependencyNode& set, const kernel::NodeType* type, const MString& name, MStatus* status)
{
    if (!type || type->isDag()) {
        api::report(status, type ? MStatus::kFailure : MStatus::kInvalidParameter);
        return MObject();
    }
    const auto made = api::makeNode(*type, nullptr, api::toKernel(name));
    scene().attach(made.node);
    const MObject object = api::toObject(made.node);
    api::report(status, set.setObject(object).statusCode());
    return object;
}

}  // namespace

MObject MFnDependencyNode::create(const MTypeId& typeId, MStatus* ReturnStatus)
{
    return createOutsideDag(*this, api::nodeType(typeId), MString(), ReturnStatus);
}

MObject MFnDependencyNode::create(const MTypeId& typeId, const MString& name, MStatus* ReturnStatus)
{
    return createOutsideDag(*this, api::nodeType(typeId), name, ReturnStatus);
}

MObject MFnDependencyNode::create(const MString& typeName, MStatus* ReturnStatus)
{
    return createOutsideDag(*this, api::nodeType(typeName), MString(), ReturnStatus);
}

MObject MFnDependencyNode::create(const MString& typeName, const MString& name, MStatus* ReturnStatus)
{
    return createOutsideDag(*this, api::nodeType(typeName), name, ReturnStatus);
}

MPlug MFnDependencyNode::findPlug(const MString& attributeName, bool, MStatus* ReturnStatus) const
{
    const auto node = nodeOf(*this, ReturnStatus);
    const auto attribute = node ? node->attribute(api::toKernel(attributeName)) : nullptr;
    if (node && !attribute)
        api::report(ReturnStatus, MStatus::kInvalidParameter);
    return attribute ? MPlug(m_object, api::toObject(attribute)) : MPlug();
}

MPlug MFnDependencyNode::findPlug(const MObject& attribute, bool, MStatus* ReturnStatus) const
{
    const auto node = nodeOf(*this, ReturnStatus);
    MPlug plug = node ? MPlug(m_object, attribute) : MPlug();
    if (node && plug.isNull())
        api::report(ReturnStatus, MStatus::kInvalidParameter);
    return plug;
}

MPlug MFnDependencyNode::findPlug(const MString& attributeName, MStatus* ReturnStatus) const
{
    return findPlug(attributeName, false, ReturnStatus);
}

MPlug MFnDependencyNode::findPlug(const MObject& attribute, MStatus* ReturnStatus) const
{
    return findPlug(attribute, false, ReturnStatus);
}

MPxNode* MFnDependencyNode::userNode(MStatus* ReturnStatus) const
{
    const auto node = nodeOf(*this, ReturnStatus);
    return node ? api::userNodeOf(*node) : nullptr;
}

MString MFnDependencyNode::name(MStatus* ReturnStatus) const
{
    if (api::isWorld(m_object)) {
        api::report(ReturnStatus, MStatus::kSuccess);
        return MString("world");
    }
    const auto node = nodeOf(*this, ReturnStatus);
    return node ? api::toHost(node->name()) : MString();
}

MString MFnDependencyNode::absoluteName(MStatus* ReturnStatus) const
{
    const auto node = nodeOf(*this, ReturnStatus);
    return node ? MString(":") + api::toHost(node->name()) : MString();
}

MString MFnDependencyNode::uniqueName(MStatus* ReturnStatus) const
{
    const auto node = nodeOf(*this, ReturnStatus);
    return node ? api::toHost(scene().partialPath(*node)) : MString();
}

MString MFnDependencyNode::setName(const MString& name, bool, MStatus* ReturnStatus)
{
    const auto node = nodeOf(*this, ReturnStatus);
    if (!node)
        return MString();
    if (name.isEmpty() || node->isReadOnly()) {
        api::report(ReturnStatus, name.isEmpty() ? MStatus::kInvalidParameter : MStatus::kFailure);
        return api::toHost(node->name());
    }
    return api::toHost(scene().rename(*node, api::toKernel(name)));
}

MTypeId MFnDependencyNode::typeId(MStatus* ReturnStatus) const
{
    const auto node = nodeOf(*this, ReturnStatus);
    return node ? MTypeId(node->type().id) : MTypeId();
}

MString MFnDependencyNode::typeName(MStatus* ReturnStatus) const
{
    const auto node = nodeOf(*this, ReturnStatus);
    return node ? api::toHost(node->typeName()) : MString();
}

bool MFnDependencyNode::hasAttribute(const MString& name, MStatus* ReturnStatus) const
{
    const auto node = nodeOf(*this, ReturnStatus);
    return node && node->attribute(api::toKernel(name));
}

MObject MFnDependencyNode::attribute(const MString& name, MStatus* ReturnStatus) const
{
    const auto node = nodeOf(*this, ReturnStatus);
    const auto attribute = node ? node->attribute(api::toKernel(name)) : nullptr;
    if (node && !attribute)
        api::report(ReturnStatus, MStatus::kInvalidParameter);
    return api::toObject(attribute);
}

MObject MFnDependencyNode::attribute(unsigned int index, MStatus* ReturnStatus) const
{
    const auto node = nodeOf(*this, ReturnStatus);
    if (!node)
        return MObject();
    const auto attributes = node->type().allAttributes();
    if (index >= attributes.size()) {
        api::report(ReturnStatus, MStatus::kInvalidParameter);
        return MObject();
    }
    return api::toObject(attributes[index]);
}

unsigned int MFnDependencyNode::attributeCount(MStatus* ReturnStatus) const
{
    const auto node = nodeOf(*this, ReturnStatus);
    return node ? static_cast<unsigned int>(node->type().allAttributes().size()) : 0;
}

MStatus MFnDependencyNode::addAttribute(const MObject&)
{
    return MStatus::kNotImplemented;
}

MStatus MFnDependencyNode::removeAttribute(const MObject&)
{
    return MStatus::kNotImplemented;
}

bool MFnDependencyNode::isLocked(MStatus* ReturnStatus) const
{
    nodeOf(*this, ReturnStatus);
    return false;
}

MStatus MFnDependencyNode::setLocked(bool locked)
{
    return locked ? MStatus::kNotImplemented : MStatus::kSuccess;
}

bool MFnDependencyNode::isFromReferencedFile(MStatus* ReturnStatus) const
{
    const auto node = nodeOf(*this, ReturnStatus);
    return node && node->referenced;
}

bool MFnDependencyNode::isShared(MStatus* ReturnStatus) const
{
    const auto node = nodeOf(*this, ReturnStatus);
    return node && node->shared;
}

bool MFnDependencyNode::isDefaultNode(MStatus* ReturnStatus) const
{
    const auto node = nodeOf(*this, ReturnStatus);
    return node && node->isDefaultNode;
}

bool MFnDependencyNode::hasUniqueName(MStatus* ReturnStatus) const
{
    const auto node = nodeOf(*this, ReturnStatus);
    return node && scene().find(node->name()).size() == 1;
}

MUuid MFnDependencyNode::uuid(MStatus* ReturnStatus) const
{
    const auto node = nodeOf(*this, ReturnStatus);
    return node ? MUuid(api::toHost(node->uid())) : MUuid();
}

MString MFnDependencyNode::classification(const MString& nodeTypeName)
{
    const auto* type = api::nodeType(nodeTypeName);
    return type ? api::toHost(type->classification) : MString();
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
