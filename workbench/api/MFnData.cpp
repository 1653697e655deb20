#include <maya/MFnData.h>

#include "api/Handles.h"

OPENMAYA_MAJOR_NAMESPACE_OPEN

MFnData::MFnData() = default;

MFnData::MFnData(MObject& object, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, MFnBase::setObject(object).statusCode());
}

MFnData::MFnData(const MObject& object, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, MFnBase::setObject(object).statusCode());
}

MFn::Type MFnData::type() const
{
    return MFn::kData;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
