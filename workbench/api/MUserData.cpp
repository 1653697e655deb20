#include <maya/MUserData.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

MUserData::MUserData(bool deleteAfterUse) : m_deleteAfterUse(deleteAfterUse) {}

MUserData::~MUserData() = default;

bool MUserData::deleteAfterUse() const
{
    return m_deleteAfterUse;
}

void MUserData::setDeleteAfterUse(bool deleteAfterUse)
{
    m_deleteAfterUse = deleteAfterUse;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
