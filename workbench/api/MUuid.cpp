#include <maya/MUuid.h>

#include "api/Handles.h"

OPENMAYA_MAJOR_NAMESPACE_OPEN

bool MUuid::valid(MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, MStatus::kSuccess);
    return !m_text.isEmpty();
}

MString MUuid::asString(MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, MStatus::kSuccess);
    return m_text;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
