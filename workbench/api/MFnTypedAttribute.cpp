#include <maya/MFnTypedAttribute.h>

#include "api/Attributes.h"
#include "api/Handles.h"
#include "kernel/Session.h"

OPENMAYA_MAJOR_NAMESPACE_OPEN

MFnTypedAttribute::MFnTypedAttribute() = default;

MFnTypedAttribute::MFnTypedAttribute(MObject& object, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, MFnBase::setObject(object).statusCode());
}

MFnTypedAttribute::MFnTypedAttribute(const MObject& object, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, MFnBase::setObject(object).statusCode());
}

MFn::Type MFnTypedAttribute::type() const
{
    return MFn::kTypedAttribute;
}

MObject MFnTypedAttribute::create(const MString& fullName, const MString& briefName, const MTypeId& id,
                                  MObject defaultData, MStatus* ReturnStatus)
{
    const auto* type = kernel::Session::current().dataTypes.findId(id.id());
    if (!type || !defaultData.isNull())
        return adopt(MObject(), ReturnStatus);
    const auto attribute =
        api::makeAttribute(api::toKernel(fullName), api::toKernel(briefName), kernel::ValueKind::Custom);
    attribute->customType = type->name;
    return adopt(api::toObject(attribute), ReturnStatus);
}

MObject MFnTypedAttribute::create(const MString& fullName, const MString& briefName, MFnData::Type type,
                                  MObject defaultData, MStatus* ReturnStatus)
{
    if (type != MFnData::kString || !defaultData.isNull())
        return adopt(MObject(), ReturnStatus);
    const auto attribute =
        api::makeAttribute(api::toKernel(fullName), api::toKernel(briefName), kernel::ValueKind::String);
    return adopt(api::toObject(attribute), ReturnStatus);
}

MFnData::Type MFnTypedAttribute::attrType(MStatus* ReturnStatus) const
{
    const auto attribute = api::attributeOf(m_object);
    api::report(ReturnStatus, attribute ? MStatus::kSuccess : MStatus::kFailure);
    if (!attribute)
        return MFnData::kInvalid;
    return attribute->kind == kernel::ValueKind::Custom ? MFnData::kPlugin : MFnData::kString;
}

MStatus MFnTypedAttribute::setDefault(const MObject& data)
{
    return data.isNull() && !m_object.isNull() ? MStatus::kSuccess : MStatus::kNotImplemented;
}

MStatus MFnTypedAttribute::getDefault(MObject& data) const
{
    data = MObject();
    return m_object.isNull() ? MStatus::kFailure : MStatus::kSuccess;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
