#include <maya/MFnAttribute.h>

#include "api/Attributes.h"
#include "api/Handles.h"

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

using api::AttributeExtras;
using kernel::AttributeSpec;

template <typename Value>
Value read(const MFnBase& set, Value AttributeSpec::*member, MStatus* status)
{
    const auto attribute = api::attributeOf(api::HandleAccess::object(set));
    api::report(status, attribute ? MStatus::kSuccess : MStatus::kFailure);
    return attribute ? (*attribute).*member : Value();
}

template <typename Value>
MStatus write(const MFnBase& set, Value AttributeSpec::*member, Value value)
{
    const auto attribute = api::attributeOf(api::HandleAccess::object(set));
    if (!attribute)
        return MStatus::kFailure;
    (*attribute).*member = value;
    return MStatus::kSuccess;
}

/// The host's own attributes read as a fresh one.
template <typename Value>
Value read(const MFnBase& set, Value AttributeExtras::*member, MStatus* status)
{
    const auto attribute = api::attributeOf(api::HandleAccess::object(set));
    api::report(status, attribute ? MStatus::kSuccess : MStatus::kFailure);
    const auto* extras = api::extrasOf(attribute);
    return extras ? extras->*member : AttributeExtras().*member;
}

template <typename Value>
MStatus write(const MFnBase& set, Value AttributeExtras::*member, Value value)
{
    auto* extras = api::extrasOf(api::attributeOf(api::HandleAccess::object(set)));
    if (!extras)
        return MStatus::kFailure;
    extras->*member = value;
    return MStatus::kSuccess;
}

}  // namespace

MFnAttribute::MFnAttribute() = default;

MFnAttribute::MFnAttribute(MObject& object, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, MFnBase::setObject(object).statusCode());
}

MFnAttribute::MFnAttribute(const MObject& object, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, MFnBase::setObject(object).statusCode());
}

MFn::Type MFnAttribute::type() const
{
    return MFn::kAttribute;
}

MObject MFnAttribute::adopt(const MObject& attribute, MStatus* status)
{
    api::report(status, attribute.isNull() ? MStatus::kFailure : setObject(attribute).statusCode());
    return attribute;
}

MString MFnAttribute::name(MStatus* ReturnStatus) const
{
    return api::toHost(read(*this, &AttributeSpec::longName, ReturnStatus));
}

MString MFnAttribute::shortName(MStatus* ReturnStatus) const
{
    return api::toHost(read(*this, &AttributeSpec::shortName, ReturnStatus));
}

bool MFnAttribute::isReadable(MStatus* ReturnStatus) const
{
    return read(*this, &AttributeSpec::readable, ReturnStatus);
}

bool MFnAttribute::isWritable(MStatus* ReturnStatus) const
{
    return read(*this, &AttributeSpec::writable, ReturnStatus);
}

bool MFnAttribute::isConnectable(MStatus* ReturnStatus) const
{
    return read(*this, &AttributeSpec::connectable, ReturnStatus);
}

bool MFnAttribute::isStorable(MStatus* ReturnStatus) const
{
    return read(*this, &AttributeSpec::storable, ReturnStatus);
}

bool MFnAttribute::isCached(MStatus* ReturnStatus) const
{
    return read(*this, &AttributeExtras::cached, ReturnStatus);
}

bool MFnAttribute::isArray(MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, m_object.isNull() ? MStatus::kFailure : MStatus::kSuccess);
    return false;
}

bool MFnAttribute::isHidden(MStatus* ReturnStatus) const
{
    return read(*this, &AttributeSpec::hidden, ReturnStatus);
}

bool MFnAttribute::isKeyable(MStatus* ReturnStatus) const
{
    return read(*this, &AttributeSpec::keyable, ReturnStatus);
}

bool MFnAttribute::isInternal(MStatus* ReturnStatus) const
{
    return read(*this, &AttributeExtras::internal, ReturnStatus);
}

bool MFnAttribute::isUsedAsColor(MStatus* ReturnStatus) const
{
    return read(*this, &AttributeExtras::usedAsColour, ReturnStatus);
}

bool MFnAttribute::isChannelBoxFlagSet(MStatus* ReturnStatus) const
{
    return read(*this, &AttributeSpec::channelBox, ReturnStatus);
}

bool MFnAttribute::indexMatters(MStatus* ReturnStatus) const
{
    return read(*this, &AttributeExtras::indexMatters, ReturnStatus);
}

bool MFnAttribute::affectsAppearance(MStatus* ReturnStatus) const
{
    return read(*this, &AttributeExtras::affectsAppearance, ReturnStatus);
}

MFnAttribute::DisconnectBehavior MFnAttribute::disconnectBehavior(MStatus* ReturnStatus) const
{
    return read(*this, &AttributeExtras::disconnectBehaviour, ReturnStatus);
}

MString MFnAttribute::niceNameOverride(MStatus* ReturnStatus) const
{
    return api::toHost(read(*this, &AttributeExtras::niceName, ReturnStatus));
}

MStatus MFnAttribute::setReadable(bool readable)
{
    return write(*this, &AttributeSpec::readable, readable);
}

MStatus MFnAttribute::setWritable(bool writable)
{
    return write(*this, &AttributeSpec::writable, writable);
}

MStatus MFnAttribute::setConnectable(bool connectable)
{
    return write(*this, &AttributeSpec::connectable, connectable);
}

MStatus MFnAttribute::setStorable(bool storable)
{
    return write(*this, &AttributeSpec::storable, storable);
}

MStatus MFnAttribute::setCached(bool cached)
{
    return write(*this, &AttributeExtras::cached, cached);
}

MStatus MFnAttribute::setArray(bool array)
{
    return array ? MStatus::kNotImplemented : MStatus::kSuccess;
}

MStatus MFnAttribute::setHidden(bool hidden)
{
    return write(*this, &AttributeSpec::hidden, hidden);
}

MStatus MFnAttribute::setKeyable(bool keyable)
{
    return write(*this, &AttributeSpec::keyable, keyable);
}

MStatus MFnAttribute::setChannelBox(bool channelBox)
{
    return write(*this, &AttributeSpec::channelBox, channelBox);
}

MStatus MFnAttribute::setInternal(bool internal)
{
    return write(*this, &AttributeExtras::internal, internal);
}

MStatus MFnAttribute::setUsedAsColor(bool usedAsColor)
{
    return write(*this, &AttributeExtras::usedAsColour, usedAsColor);
}

MStatus MFnAttribute::setIndexMatters(bool indexMatters)
{
    return write(*this, &AttributeExtras::indexMatters, indexMatters);
}

MStatus MFnAttribute::setAffectsAppearance(bool affectsAppearance)
{
    return write(*this, &AttributeExtras::affectsAppearance, affectsAppearance);
}

MStatus MFnAttribute::setDisconnectBehavior(DisconnectBehavior behaviour)
{
    return write(*this, &AttributeExtras::disconnectBehaviour, behaviour);
}

MStatus MFnAttribute::setNiceNameOverride(const MString& name)
{
    return write(*this, &AttributeExtras::niceName, api::toKernel(name));
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
