#include <maya/MPxNode.h>

#include "api/Handles.h"
#include "api/TypeRegistration.h"

#include <maya/MPlugArray.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

MPxNode::MPxNode() = default;
MPxNode::~MPxNode() = default;

void MPxNode::postConstructor() {}

MStatus MPxNode::compute(const MPlug&, MDataBlock&)
{
    return MStatus::kUnknownParameter;
}

bool MPxNode::getInternalValue(const MPlug&, MDataHandle&)
{
    return false;
}

bool MPxNode::setInternalValue(const MPlug&, const MDataHandle&)
{
    return false;
}

int MPxNode::internalArrayCount(const MPlug&) const
{
    return -1;
}

void MPxNode::copyInternalData(MPxNode*) {}

MStatus MPxNode::legalConnection(const MPlug&, const MPlug&, bool, bool&) const
{
    return MStatus::kUnknownParameter;
}

MStatus MPxNode::legalDisconnection(const MPlug&, const MPlug&, bool, bool&) const
{
    return MStatus::kUnknownParameter;
}

MStatus MPxNode::connectionMade(const MPlug&, const MPlug&, bool)
{
    return MStatus::kUnknownParameter;
}

MStatus MPxNode::connectionBroken(const MPlug&, const MPlug&, bool)
{
    return MStatus::kUnknownParameter;
}

MStatus MPxNode::dependsOn(const MPlug&, const MPlug&, bool&) const
{
    return MStatus::kUnknownParameter;
}

MStatus MPxNode::setDependentsDirty(const MPlug&, MPlugArray&)
{
    return MStatus::kSuccess;
}

MStatus MPxNode::preEvaluation(const MDGContext&, const MEvaluationNode&)
{
    return MStatus::kSuccess;
}

MStatus MPxNode::postEvaluation(const MDGContext&, const MEvaluationNode&, PostEvaluationType)
{
    return MStatus::kSuccess;
}

MPxNode::SchedulingType MPxNode::schedulingType() const
{
    return kDefaultScheduling;
}

MPxNode::Type MPxNode::type() const
{
    return kDependNode;
}

bool MPxNode::isAbstractClass() const
{
    return false;
}

bool MPxNode::isPassiveOutput(const MPlug&) const
{
    return false;
}

bool MPxNode::existWithoutInConnections(MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, MStatus::kSuccess);
    return m_existWithoutIn;
}

bool MPxNode::existWithoutOutConnections(MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, MStatus::kSuccess);
    return m_existWithoutOut;
}

bool MPxNode::doNotWrite(MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, MStatus::kSuccess);
    return m_doNotWrite;
}

MObject MPxNode::thisMObject() const
{
    return m_owner ? api::toObject(m_owner->node.weak_from_this().lock()) : MObject();
}

MTypeId MPxNode::typeId() const
{
    return m_owner ? MTypeId(m_owner->node.type().id) : MTypeId();
}

MString MPxNode::typeName() const
{
    return m_owner ? api::toHost(m_owner->node.typeName()) : MString();
}

MString MPxNode::name() const
{
    return m_owner ? api::toHost(m_owner->node.name()) : MString();
}

MStatus MPxNode::setExistWithoutInConnections(bool exist)
{
    m_existWithoutIn = exist;
    return MStatus::kSuccess;
}

MStatus MPxNode::setExistWithoutOutConnections(bool exist)
{
    m_existWithoutOut = exist;
    return MStatus::kSuccess;
}

MStatus MPxNode::setDoNotWrite(bool doNotWrite)
{
    m_doNotWrite = doNotWrite;
    return MStatus::kSuccess;
}

MStatus MPxNode::addAttribute(const MObject& attribute)
{
    auto* registration = api::TypeRegistration::current();
    const auto own = api::attributeOf(attribute);
    if (!registration || !own)
        return MStatus::kInvalidParameter;
    return registration->add(own) ? MStatus::kSuccess : MStatus::kFailure;
}

// Values are never computed here, so what depends on what is not kept.
MStatus MPxNode::attributeAffects(const MObject& whenChanges, const MObject& isAffected)
{
    const auto* registration = api::TypeRegistration::current();
    const auto source = api::attributeOf(whenChanges);
    const auto target = api::attributeOf(isAffected);
    const bool known = registration && source && target && registration->has(source) && registration->has(target);
    return known ? MStatus::kSuccess : MStatus::kInvalidParameter;
}

MStatus MPxNode::inheritAttributesFrom(const MString& typeName)
{
    auto* registration = api::TypeRegistration::current();
    const bool done = registration && registration->inheritFrom(api::toKernel(typeName));
    return done ? MStatus::kSuccess : MStatus::kInvalidParameter;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
