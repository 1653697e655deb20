#include <maya/MCommandResult.h>

#include "api/Access.h"
#include "api/Results.h"

using api::report;

OPENMAYA_MAJOR_NAMESPACE_OPEN

MCommandResult::MCommandResult(MStatus* ReturnStatus) : m_value(new api::ResultValue)
{
    report(ReturnStatus, MStatus::kSuccess);
}

MCommandResult::~MCommandResult() = default;

MCommandResult::Type MCommandResult::resultType(MStatus* ReturnStatus)
{
    report(ReturnStatus, MStatus::kSuccess);
    // In the order of the value's alternatives.
    static const Type kTypes[] = {kInvalid,  kInt,         kDouble,      kString,     kVector,
                                  kIntArray, kDoubleArray, kStringArray, kVectorArray};
    return kTypes[m_value->value.index()];
}

MStatus MCommandResult::getResult(int& result)
{
    return api::getExactly(m_value->value, result);
}

MStatus MCommandResult::getResult(MInt64& result)
{
    int number = 0;
    const MStatus status = api::getExactly(m_value->value, number);
    if (status)
        result = number;
    return status;
}

MStatus MCommandResult::getResult(MIntArray& result)
{
    return api::getExactly(m_value->value, result);
}

MStatus MCommandResult::getResult(double& result)
{
    return api::getExactly(m_value->value, result);
}

MStatus MCommandResult::getResult(MDoubleArray& result)
{
    return api::getExactly(m_value->value, result);
}

MStatus MCommandResult::getResult(MString& result)
{
    return api::getExactly(m_value->value, result);
}

MStatus MCommandResult::getResult(MStringArray& result)
{
    return api::getExactly(m_value->value, result);
}

MStatus MCommandResult::getResult(MVector& result)
{
    return api::getExactly(m_value->value, result);
}

MString MCommandResult::stringResult(MStatus* ReturnStatus)
{
    MString text;
    const MStatus status = getResult(text);
    report(ReturnStatus, status.statusCode());
    return text;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
