#include <maya/MFnEnumAttribute.h>

#include "api/Attributes.h"
#include "api/Handles.h"

OPENMAYA_MAJOR_NAMESPACE_OPEN

MFnEnumAttribute::MFnEnumAttribute() = default;

MFnEnumAttribute::MFnEnumAttribute(MObject& object, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, MFnBase::setObject(object).statusCode());
}

MFnEnumAttribute::MFnEnumAttribute(const MObject& object, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, MFnBase::setObject(object).statusCode());
}

MFn::Type MFnEnumAttribute::type() const
{
    return MFn::kEnumAttribute;
}

MObject MFnEnumAttribute::create(const MString& fullName, const MString& briefName, short defaultValue,
                                 MStatus* ReturnStatus)
{
    const auto attribute =
        api::makeAttribute(api::toKernel(fullName), api::toKernel(briefName), kernel::ValueKind::Enum);
    attribute->defaultNumber = defaultValue;
    return adopt(api::toObject(attribute), ReturnStatus);
}

MStatus MFnEnumAttribute::addField(const MString& fieldName, short value)
{
    const auto attribute = api::attributeOf(m_object);
    if (!attribute || value < 0)
        return MStatus::kInvalidParameter;
    auto& names = attribute->enumNames;
    if (names.size() <= std::size_t(value))
        names.resize(std::size_t(value) + 1);
    names[std::size_t(value)] = api::toKernel(fieldName);
    attribute->minimum = 0;
    attribute->maximum = double(names.size() - 1);
    return MStatus::kSuccess;
}

MString MFnEnumAttribute::fieldName(short value, MStatus* ReturnStatus) const
{
    const auto attribute = api::attributeOf(m_object);
    const bool exists = attribute && value >= 0 && std::size_t(value) < attribute->enumNames.size();
    api::report(ReturnStatus, exists ? MStatus::kSuccess : MStatus::kInvalidParameter);
    return exists ? api::toHost(attribute->enumNames[std::size_t(value)]) : MString();
}

short MFnEnumAttribute::fieldIndex(const MString& fieldName, MStatus* ReturnStatus) const
{
    const auto attribute = api::attributeOf(m_object);
    const std::string wanted = api::toKernel(fieldName);
    for (std::size_t i = 0; attribute && i < attribute->enumNames.size(); ++i) {
        if (attribute->enumNames[i] == wanted) {
            api::report(ReturnStatus, MStatus::kSuccess);
            return short(i);
        }
    }
    api::report(ReturnStatus, MStatus::kInvalidParameter);
    return 0;
}

MStatus MFnEnumAttribute::getMin(short& value) const
{
    const auto attribute = api::attributeOf(m_object);
    if (!attribute || attribute->enumNames.empty())
        return MStatus::kFailure;
    value = 0;
    return MStatus::kSuccess;
}

MStatus MFnEnumAttribute::getMax(short& value) const
{
    const auto attribute = api::attributeOf(m_object);
    if (!attribute || attribute->enumNames.empty())
        return MStatus::kFailure;
    value = short(attribute->enumNames.size() - 1);
    return MStatus::kSuccess;
}

MStatus MFnEnumAttribute::setDefault(short value)
{
    const auto attribute = api::attributeOf(m_object);
    if (!attribute)
        return MStatus::kFailure;
    attribute->defaultNumber = value;
    return MStatus::kSuccess;
}

MStatus MFnEnumAttribute::getDefault(short& value) const
{
    const auto attribute = api::attributeOf(m_object);
    if (!attribute)
        return MStatus::kFailure;
    value = short(attribute->defaultNumber);
    return MStatus::kSuccess;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
