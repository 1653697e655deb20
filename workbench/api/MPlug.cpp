#include <maya/MPlug.h>

#include "api/Handles.h"
#include "api/ModuleData.h"
#include "api/PlugValues.h"
#include "kernel/Edits.h"
#include "kernel/Session.h"

#include <maya/MAngle.h>
#include <maya/MDistance.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

using kernel::ValueKind;

/// Both ends of a plug, held for one call.
struct Target {
    kernel::NodePtr node;
    kernel::AttributePtr attribute;

    explicit Target(const MPlug& plug) : node(api::nodeOf(plug)), attribute(api::attributeOf(plug)) {}
    explicit operator bool() const { return node && attribute; }

    kernel::AttributePtr parent() const
    {
        return attribute->parent.empty() ? nullptr : node->attribute(attribute->parent);
    }

    bool isLocked() const { return kernel::isLockedPlug(*node, *attribute); }
};

/// 0 and a failure when the plug is gone or holds no number.
double readNumber(const MPlug& plug, MStatus* status)
{
    const Target target(plug);
    if (!target || !kernel::isNumber(target.attribute->kind)) {
        api::report(status, MStatus::kFailure);
        return 0;
    }
    api::report(status, MStatus::kSuccess);
    const auto value = target.node->value(*target.attribute);
    const auto* number = std::get_if<double>(&value);
    return number ? api::toApiNumber(*target.attribute, *number) : 0;
}

MStatus writeNumber(const MPlug& plug, double number)
{
    const Target target(plug);
    if (!target || !kernel::isNumber(target.attribute->kind) || target.isLocked())
        return MStatus::kFailure;
    const auto held = api::toHeldNumber(*target.attribute, number);
    if (!held)
        return MStatus::kInvalidParameter;
    target.node->setValue(*target.attribute, *held);
    return MStatus::kSuccess;
}

MStatus writeData(const MPlug& plug, const std::shared_ptr<kernel::CustomData>& data)
{
    const Target target(plug);
    if (!target || target.attribute->kind != ValueKind::Custom || target.isLocked())
        return MStatus::kFailure;
    if (data && data->typeName() != target.attribute->customType)
        return MStatus::kInvalidParameter;
    target.node->setValue(*target.attribute, data ? kernel::PlugValue(data) : kernel::PlugValue());
    return MStatus::kSuccess;
}

MStatus writeFlag(const MPlug& plug, bool kernel::PlugFlags::*flag, bool on)
{
    const Target target(plug);
    if (!target)
        return MStatus::kFailure;
    auto flags = target.node->flags(*target.attribute);
    flags.*flag = on;
    target.node->setFlags(*target.attribute, flags);
    return MStatus::kSuccess;
}

bool readFlag(const MPlug& plug, bool kernel::PlugFlags::*flag, MStatus* status)
{
    const Target target(plug);
    api::report(status, target ? MStatus::kSuccess : MStatus::kFailure);
    return target && target.node->flags(*target.attribute).*flag;
}

/// Answers a question that has the same answer for every plug.
bool answerNo(const MPlug& plug, MStatus* status)
{
    api::report(status, Target(plug) ? MStatus::kSuccess : MStatus::kFailure);
    return false;
}

template <typename T>
MStatus readInto(T& out, T value, const MStatus& status)
{
    if (status)
        out = value;
    return status;
}

}  // namespace

MPlug::MPlug() = default;

MPlug::MPlug(const MObject& node, const MObject& attribute)
{
    const auto target = api::nodeOf(node);
    const auto own = api::attributeOf(attribute);
    if (!target || !own || target->attribute(own->longName) != own)
        return;
    m_node = node;
    m_attribute = attribute;
}

bool MPlug::isNull(MStatus* ReturnStatus)
{
    api::report(ReturnStatus, MStatus::kSuccess);
    return m_attribute.isNull();
}

MObject MPlug::node(MStatus* ReturnStatus)
{
    api::report(ReturnStatus, isNull() ? MStatus::kFailure : MStatus::kSuccess);
    return m_node;
}

MObject MPlug::attribute(MStatus* ReturnStatus)
{
    api::report(ReturnStatus, isNull() ? MStatus::kFailure : MStatus::kSuccess);
    return m_attribute;
}

MString MPlug::name(MStatus* ReturnStatus)
{
    return partialName(true, false, false, false, false, true, ReturnStatus);
}

MString MPlug::partialName(bool includeNodeName, bool, bool, bool, bool useFullAttributePath, bool useLongNames,
                           MStatus* ReturnStatus)
{
    const Target target(*this);
    api::report(ReturnStatus, target ? MStatus::kSuccess : MStatus::kFailure);
    if (!target)
        return MString();
    const auto nameOf = [useLongNames](const kernel::AttributeSpec& a) {
        return useLongNames ? a.longName : a.shortName;
    };
    std::string text = nameOf(*target.attribute);
    const auto compound = target.parent();
    if (useFullAttributePath && compound)
        text = nameOf(*compound) + "." + text;
    if (includeNodeName)
        text = kernel::Session::current().scene.partialPath(*target.node) + "." + text;
    return api::toHost(text);
}

bool MPlug::asBool(MStatus* ReturnStatus)
{
    return readNumber(*this, ReturnStatus) != 0;
}

char MPlug::asChar(MStatus* ReturnStatus)
{
    return static_cast<char>(asInt(ReturnStatus));
}

short MPlug::asShort(MStatus* ReturnStatus)
{
    return static_cast<short>(asInt(ReturnStatus));
}

int MPlug::asInt(MStatus* ReturnStatus)
{
    return api::toWhole(readNumber(*this, ReturnStatus));
}

MInt64 MPlug::asInt64(MStatus* ReturnStatus)
{
    return static_cast<MInt64>(readNumber(*this, ReturnStatus));
}

float MPlug::asFloat(MStatus* ReturnStatus)
{
    return static_cast<float>(readNumber(*this, ReturnStatus));
}

double MPlug::asDouble(MStatus* ReturnStatus)
{
    return readNumber(*this, ReturnStatus);
}

MString MPlug::asString(MStatus* ReturnStatus)
{
    const Target target(*this);
    const bool isText = target && target.attribute->kind == ValueKind::String;
    api::report(ReturnStatus, isText ? MStatus::kSuccess : MStatus::kFailure);
    if (!isText)
        return MString();
    const auto value = target.node->value(*target.attribute);
    const auto* text = std::get_if<std::string>(&value);
    return text ? api::toHost(*text) : MString();
}

MTime MPlug::asMTime(MStatus* ReturnStatus)
{
    return MTime(readNumber(*this, ReturnStatus), MTime::uiUnit());
}

MObject MPlug::asMObject(MStatus* ReturnStatus)
{
    const Target target(*this);
    std::shared_ptr<kernel::CustomData> data;
    if (target && target.attribute->kind == ValueKind::Custom) {
        const auto value = target.node->value(*target.attribute);
        if (const auto* held = std::get_if<std::shared_ptr<kernel::CustomData>>(&value))
            data = *held;
    }
    api::report(ReturnStatus, data ? MStatus::kSuccess : MStatus::kFailure);
    return api::toObject(data);
}

MStatus MPlug::getValue(bool& value)
{
    MStatus status;
    const bool read = asBool(&status);
    return readInto(value, read, status);
}

MStatus MPlug::getValue(int& value)
{
    MStatus status;
    const int read = asInt(&status);
    return readInto(value, read, status);
}

MStatus MPlug::getValue(short& value)
{
    MStatus status;
    const short read = asShort(&status);
    return readInto(value, read, status);
}

MStatus MPlug::getValue(float& value)
{
    MStatus status;
    const float read = asFloat(&status);
    return readInto(value, read, status);
}

MStatus MPlug::getValue(double& value)
{
    MStatus status;
    const double read = asDouble(&status);
    return readInto(value, read, status);
}

MStatus MPlug::getValue(MString& value)
{
    MStatus status;
    const MString read = asString(&status);
    return readInto(value, read, status);
}

MStatus MPlug::getValue(MTime& value)
{
    MStatus status;
    const MTime read = asMTime(&status);
    return readInto(value, read, status);
}

MStatus MPlug::getValue(MObject& value)
{
    MStatus status;
    const MObject read = asMObject(&status);
    return readInto(value, read, status);
}

MStatus MPlug::setBool(bool value)
{
    return writeNumber(*this, value);
}

MStatus MPlug::setChar(char value)
{
    return writeNumber(*this, value);
}

MStatus MPlug::setShort(short value)
{
    return writeNumber(*this, value);
}

MStatus MPlug::setInt(int value)
{
    return writeNumber(*this, value);
}

MStatus MPlug::setInt64(MInt64 value)
{
    return writeNumber(*this, static_cast<double>(value));
}

MStatus MPlug::setFloat(float value)
{
    return writeNumber(*this, value);
}

MStatus MPlug::setDouble(double value)
{
    return writeNumber(*this, value);
}

MStatus MPlug::setString(const MString& value)
{
    const Target target(*this);
    if (!target || target.attribute->kind != ValueKind::String || target.isLocked())
        return MStatus::kFailure;
    target.node->setValue(*target.attribute, api::toKernel(value));
    return MStatus::kSuccess;
}

MStatus MPlug::setMTime(const MTime& value)
{
    return writeNumber(*this, value.as(MTime::uiUnit()));
}

MStatus MPlug::setMAngle(const MAngle& value)
{
    return writeNumber(*this, value.asRadians());
}

MStatus MPlug::setMDistance(const MDistance& value)
{
    return writeNumber(*this, value.asCentimeters());
}

MStatus MPlug::setMObject(const MObject& value)
{
    const auto data = api::dataOf(value);
    return data || value.isNull() ? writeData(*this, data) : MStatus(MStatus::kInvalidParameter);
}

MStatus MPlug::setMPxData(const MPxData* value)
{
    if (!value)
        return writeData(*this, nullptr);
    const Target target(*this);
    if (!target || target.attribute->kind != ValueKind::Custom || target.isLocked())
        return MStatus::kFailure;
    // Checked before the object is taken over: a refused one stays the caller's.
    const auto* type = kernel::Session::current().dataTypes.findId(value->typeId().id());
    if (!type || type->name != target.attribute->customType)
        return MStatus::kInvalidParameter;
    return writeData(*this, api::ModuleData::owning(const_cast<MPxData*>(value)));
}

bool MPlug::isKeyable(MStatus* ReturnStatus)
{
    return readFlag(*this, &kernel::PlugFlags::keyable, ReturnStatus);
}

MStatus MPlug::setKeyable(bool keyable)
{
    return writeFlag(*this, &kernel::PlugFlags::keyable, keyable);
}

bool MPlug::isLocked(MStatus* ReturnStatus)
{
    const Target target(*this);
    api::report(ReturnStatus, target ? MStatus::kSuccess : MStatus::kFailure);
    return target && target.isLocked();
}

MStatus MPlug::setLocked(bool locked)
{
    return writeFlag(*this, &kernel::PlugFlags::locked, locked);
}

bool MPlug::isChannelBoxFlagSet(MStatus* ReturnStatus)
{
    return readFlag(*this, &kernel::PlugFlags::channelBox, ReturnStatus);
}

MStatus MPlug::setChannelBox(bool inChannelBox)
{
    return writeFlag(*this, &kernel::PlugFlags::channelBox, inChannelBox);
}

bool MPlug::isConnected(MStatus* ReturnStatus)
{
    return isDestination(ReturnStatus) || isSource(ReturnStatus);
}

bool MPlug::isDestination(MStatus* ReturnStatus)
{
    const Target target(*this);
    api::report(ReturnStatus, target ? MStatus::kSuccess : MStatus::kFailure);
    return target && target.node->isAnimated(*target.attribute);
}

bool MPlug::isSource(MStatus* ReturnStatus)
{
    const Target target(*this);
    api::report(ReturnStatus, target ? MStatus::kSuccess : MStatus::kFailure);
    return target && target.attribute->longName == "output" && !target.node->drivenPlugs().empty();
}

bool MPlug::isArray(MStatus* ReturnStatus)
{
    return answerNo(*this, ReturnStatus);
}

bool MPlug::isCompound(MStatus* ReturnStatus)
{
    const Target target(*this);
    api::report(ReturnStatus, target ? MStatus::kSuccess : MStatus::kFailure);
    return target && target.attribute->kind == ValueKind::Compound;
}

bool MPlug::isElement(MStatus* ReturnStatus)
{
    return answerNo(*this, ReturnStatus);
}

bool MPlug::isChild(MStatus* ReturnStatus)
{
    const Target target(*this);
    api::report(ReturnStatus, target ? MStatus::kSuccess : MStatus::kFailure);
    return target && !target.attribute->parent.empty();
}

bool MPlug::isDynamic(MStatus* ReturnStatus)
{
    return answerNo(*this, ReturnStatus);
}

bool MPlug::isNetworked(MStatus* ReturnStatus)
{
    return answerNo(*this, ReturnStatus);
}

MPlug MPlug::child(unsigned int index, MStatus* ReturnStatus)
{
    const Target target(*this);
    const bool exists = target && index < target.attribute->children.size();
    api::report(ReturnStatus, exists ? MStatus::kSuccess : MStatus::kInvalidParameter);
    if (!exists)
        return MPlug();
    return MPlug(m_node, api::toObject(target.node->attribute(target.attribute->children[index])));
}

MPlug MPlug::parent(MStatus* ReturnStatus)
{
    const Target target(*this);
    const auto compound = target ? target.parent() : nullptr;
    api::report(ReturnStatus, compound ? MStatus::kSuccess : MStatus::kFailure);
    return compound ? MPlug(m_node, api::toObject(compound)) : MPlug();
}

MPlug MPlug::array(MStatus* ReturnStatus)
{
    api::report(ReturnStatus, MStatus::kFailure);
    return MPlug();
}

MPlug MPlug::elementByLogicalIndex(unsigned int, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, MStatus::kFailure);
    return MPlug();
}

unsigned int MPlug::numChildren(MStatus* ReturnStatus)
{
    const Target target(*this);
    api::report(ReturnStatus, target ? MStatus::kSuccess : MStatus::kFailure);
    return target ? static_cast<unsigned int>(target.attribute->children.size()) : 0;
}

unsigned int MPlug::numElements(MStatus* ReturnStatus)
{
    api::report(ReturnStatus, MStatus::kFailure);
    return 0;
}

bool MPlug::operator==(const MPlug& other)
{
    return m_node == other.m_node && m_attribute == other.m_attribute;
}

bool MPlug::operator!=(const MPlug& other)
{
    return !(*this == other);
}

bool MPlug::operator==(const MObject& attribute)
{
    return m_attribute == attribute;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
