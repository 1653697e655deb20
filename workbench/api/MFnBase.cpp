#include "api/Handles.h"

OPENMAYA_MAJOR_NAMESPACE_OPEN

MFnBase::MFnBase() = default;
MFnBase::~MFnBase() = default;

MFn::Type MFnBase::type() const
{
    return MFn::kBase;
}

bool MFnBase::hasObj(MFn::Type type) const
{
    return type == this->type() || type == MFn::kBase;
}

bool MFnBase::hasObj(const MObject& object) const
{
    return object.hasFn(type());
}

MObject MFnBase::object(MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, m_object.isNull() ? MStatus::kFailure : MStatus::kSuccess);
    return m_object;
}

MStatus MFnBase::setObject(MObject& object)
{
    return setObject(const_cast<const MObject&>(object));
}

MStatus MFnBase::setObject(const MObject& object)
{
    const bool fits = object.hasFn(type());
    m_object = fits ? object : MObject();
    return fits ? MStatus::kSuccess : MStatus::kInvalidParameter;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
