#include <maya/MFnNumericAttribute.h>

#include "api/Attributes.h"
#include "api/Handles.h"

#include <initializer_list>
#include <optional>

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

using kernel::ValueKind;

struct TypeRow {
    MFnNumericData::Type type;
    ValueKind kind;  ///< of each number
    int numbers;
};

const TypeRow kTypes[] = {
    {MFnNumericData::kBoolean, ValueKind::Bool, 1},   {MFnNumericData::kByte, ValueKind::Int, 1},
    {MFnNumericData::kChar, ValueKind::Int, 1},       {MFnNumericData::kShort, ValueKind::Int, 1},
    {MFnNumericData::k2Short, ValueKind::Int, 2},     {MFnNumericData::k3Short, ValueKind::Int, 3},
    {MFnNumericData::kLong, ValueKind::Int, 1},       {MFnNumericData::k2Long, ValueKind::Int, 2},
    {MFnNumericData::k3Long, ValueKind::Int, 3},      {MFnNumericData::kInt64, ValueKind::Double, 1},
    {MFnNumericData::kFloat, ValueKind::Float, 1},    {MFnNumericData::k2Float, ValueKind::Float, 2},
    {MFnNumericData::k3Float, ValueKind::Float, 3},   {MFnNumericData::kDouble, ValueKind::Double, 1},
    {MFnNumericData::k2Double, ValueKind::Double, 2}, {MFnNumericData::k3Double, ValueKind::Double, 3},
    {MFnNumericData::k4Double, ValueKind::Double, 4},
};

const TypeRow* rowOf(MFnNumericData::Type type)
{
    for (const TypeRow& row : kTypes) {
        if (row.type == type)
            return &row;
    }
    return nullptr;
}

/// A compound whose children are named like it with one letter of `suffixes` each.
kernel::AttributePtr makeCompound(const std::string& longName, const std::string& shortName, const TypeRow& row,
                                  const char* suffixes, double defaultValue)
{
    const auto compound = api::makeAttribute(longName, shortName, ValueKind::Compound);
    auto* extras = api::extrasOf(compound);
    extras->numericType = row.type;
    for (int i = 0; i < row.numbers; ++i) {
        const char letter = suffixes[i];
        const char small = letter >= 'A' && letter <= 'Z' ? char(letter - 'A' + 'a') : letter;
        const auto child = api::makeAttribute(longName + letter, shortName + small, row.kind);
        child->parent = longName;
        child->defaultNumber = defaultValue;
        compound->children.push_back(child->longName);
        extras->children.push_back(child);
    }
    return compound;
}

/// The attribute's number or, for a compound, its children's.
std::vector<kernel::AttributePtr> numbersOf(const MFnBase& set)
{
    const auto attribute = api::attributeOf(api::HandleAccess::object(set));
    if (!attribute)
        return {};
    if (attribute->kind != ValueKind::Compound)
        return {attribute};
    const auto* extras = api::extrasOf(attribute);
    return extras ? extras->children : std::vector<kernel::AttributePtr>();
}

using Limit = std::optional<double>;

MStatus setLimit(const MFnBase& set, Limit kernel::AttributeSpec::*limit, double value)
{
    const auto numbers = numbersOf(set);
    for (const auto& number : numbers)
        (*number).*limit = value;
    return numbers.empty() ? MStatus::kFailure : MStatus::kSuccess;
}

MStatus setLimit(const MFnBase& set, Limit api::AttributeExtras::*limit, double value)
{
    auto* extras = api::extrasOf(api::attributeOf(api::HandleAccess::object(set)));
    if (!extras)
        return MStatus::kFailure;
    extras->*limit = value;
    return MStatus::kSuccess;
}

Limit limitOf(const MFnBase& set, Limit kernel::AttributeSpec::*limit)
{
    const auto numbers = numbersOf(set);
    return numbers.empty() ? Limit() : (*numbers.front()).*limit;
}

Limit limitOf(const MFnBase& set, Limit api::AttributeExtras::*limit)
{
    const auto* extras = api::extrasOf(api::attributeOf(api::HandleAccess::object(set)));
    return extras ? extras->*limit : Limit();
}

MStatus giveLimit(const Limit& limit, double& value)
{
    if (!limit)
        return MStatus::kFailure;
    value = *limit;
    return MStatus::kSuccess;
}

MStatus setDefaults(const MFnBase& set, std::initializer_list<double> values)
{
    const auto numbers = numbersOf(set);
    if (numbers.size() != values.size())
        return MStatus::kInvalidParameter;
    auto value = values.begin();
    for (const auto& number : numbers)
        number->defaultNumber = *value++;
    return MStatus::kSuccess;
}

template <typename Number>
MStatus getDefaults(const MFnBase& set, std::initializer_list<Number*> values)
{
    const auto numbers = numbersOf(set);
    if (numbers.size() != values.size())
        return MStatus::kInvalidParameter;
    auto number = numbers.begin();
    for (Number* value : values)
        *value = static_cast<Number>((*number++)->defaultNumber);
    return MStatus::kSuccess;
}

bool answer(const Limit& limit, const MObject& attribute, MStatus* status)
{
    api::report(status, attribute.isNull() ? MStatus::kFailure : MStatus::kSuccess);
    return limit.has_value();
}

}  // namespace

MFnNumericAttribute::MFnNumericAttribute() = default;

MFnNumericAttribute::MFnNumericAttribute(MObject& object, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, MFnBase::setObject(object).statusCode());
}

MFnNumericAttribute::MFnNumericAttribute(const MObject& object, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, MFnBase::setObject(object).statusCode());
}

MFn::Type MFnNumericAttribute::type() const
{
    return MFn::kNumericAttribute;
}

MObject MFnNumericAttribute::create(const MString& fullName, const MString& briefName, MFnNumericData::Type type,
                                    double defaultValue, MStatus* ReturnStatus)
{
    const TypeRow* row = rowOf(type);
    if (!row)
        return adopt(MObject(), ReturnStatus);
    const std::string longName = api::toKernel(fullName);
    const std::string shortName = api::toKernel(briefName);
    if (row->numbers > 1)
        return adopt(api::toObject(makeCompound(longName, shortName, *row, "0123", defaultValue)), ReturnStatus);
    const auto attribute = api::makeAttribute(longName, shortName, row->kind);
    attribute->defaultNumber = defaultValue;
    api::extrasOf(attribute)->numericType = type;
    return adopt(api::toObject(attribute), ReturnStatus);
}

MObject MFnNumericAttribute::createColor(const MString& fullName, const MString& briefName, MStatus* ReturnStatus)
{
    const auto colour =
        makeCompound(api::toKernel(fullName), api::toKernel(briefName), *rowOf(MFnNumericData::k3Float), "RGB", 0);
    api::extrasOf(colour)->usedAsColour = true;
    return adopt(api::toObject(colour), ReturnStatus);
}

MObject MFnNumericAttribute::createPoint(const MString& fullName, const MString& briefName, MStatus* ReturnStatus)
{
    const auto point =
        makeCompound(api::toKernel(fullName), api::toKernel(briefName), *rowOf(MFnNumericData::k3Float), "XYZ", 0);
    return adopt(api::toObject(point), ReturnStatus);
}

MObject MFnNumericAttribute::child(unsigned int index, MStatus* ReturnStatus) const
{
    const auto* extras = api::extrasOf(api::attributeOf(m_object));
    const bool exists = extras && index < extras->children.size();
    api::report(ReturnStatus, exists ? MStatus::kSuccess : MStatus::kInvalidParameter);
    return exists ? api::toObject(extras->children[index]) : MObject();
}

bool MFnNumericAttribute::hasMin(MStatus* ReturnStatus) const
{
    return answer(limitOf(*this, &kernel::AttributeSpec::minimum), m_object, ReturnStatus);
}

bool MFnNumericAttribute::hasMax(MStatus* ReturnStatus) const
{
    return answer(limitOf(*this, &kernel::AttributeSpec::maximum), m_object, ReturnStatus);
}

bool MFnNumericAttribute::hasSoftMin(MStatus* ReturnStatus) const
{
    return answer(limitOf(*this, &api::AttributeExtras::softMinimum), m_object, ReturnStatus);
}

bool MFnNumericAttribute::hasSoftMax(MStatus* ReturnStatus) const
{
    return answer(limitOf(*this, &api::AttributeExtras::softMaximum), m_object, ReturnStatus);
}

MStatus MFnNumericAttribute::getMin(double& value) const
{
    return giveLimit(limitOf(*this, &kernel::AttributeSpec::minimum), value);
}

MStatus MFnNumericAttribute::getMax(double& value) const
{
    return giveLimit(limitOf(*this, &kernel::AttributeSpec::maximum), value);
}

MStatus MFnNumericAttribute::getSoftMin(double& value) const
{
    return giveLimit(limitOf(*this, &api::AttributeExtras::softMinimum), value);
}

MStatus MFnNumericAttribute::getSoftMax(double& value) const
{
    return giveLimit(limitOf(*this, &api::AttributeExtras::softMaximum), value);
}

MStatus MFnNumericAttribute::setMin(double value)
{
    return setLimit(*this, &kernel::AttributeSpec::minimum, value);
}

MStatus MFnNumericAttribute::setMax(double value)
{
    return setLimit(*this, &kernel::AttributeSpec::maximum, value);
}

MStatus MFnNumericAttribute::setSoftMin(double value)
{
    return setLimit(*this, &api::AttributeExtras::softMinimum, value);
}

MStatus MFnNumericAttribute::setSoftMax(double value)
{
    return setLimit(*this, &api::AttributeExtras::softMaximum, value);
}

MStatus MFnNumericAttribute::setDefault(bool value)
{
    return setDefaults(*this, {double(value)});
}

MStatus MFnNumericAttribute::setDefault(char value)
{
    return setDefaults(*this, {double(value)});
}

MStatus MFnNumericAttribute::setDefault(short value)
{
    return setDefaults(*this, {double(value)});
}

MStatus MFnNumericAttribute::setDefault(int value)
{
    return setDefaults(*this, {double(value)});
}

MStatus MFnNumericAttribute::setDefault(float value)
{
    return setDefaults(*this, {double(value)});
}

MStatus MFnNumericAttribute::setDefault(double value)
{
    return setDefaults(*this, {value});
}

MStatus MFnNumericAttribute::setDefault(float value1, float value2, float value3)
{
    return setDefaults(*this, {double(value1), double(value2), double(value3)});
}

MStatus MFnNumericAttribute::setDefault(double value1, double value2, double value3)
{
    return setDefaults(*this, {value1, value2, value3});
}

MStatus MFnNumericAttribute::getDefault(bool& value) const
{
    return getDefaults(*this, {&value});
}

MStatus MFnNumericAttribute::getDefault(char& value) const
{
    return getDefaults(*this, {&value});
}

MStatus MFnNumericAttribute::getDefault(short& value) const
{
    return getDefaults(*this, {&value});
}

MStatus MFnNumericAttribute::getDefault(int& value) const
{
    return getDefaults(*this, {&value});
}

MStatus MFnNumericAttribute::getDefault(float& value) const
{
    return getDefaults(*this, {&value});
}

MStatus MFnNumericAttribute::getDefault(double& value) const
{
    return getDefaults(*this, {&value});
}

MStatus MFnNumericAttribute::getDefault(float& value1, float& value2, float& value3) const
{
    return getDefaults(*this, {&value1, &value2, &value3});
}

MStatus MFnNumericAttribute::getDefault(double& value1, double& value2, double& value3) const
{
    return getDefaults(*this, {&value1, &value2, &value3});
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
