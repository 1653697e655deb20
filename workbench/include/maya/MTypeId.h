#pragma once

#include <maya/MStatus.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Number of a node or data type, as binary scenes hold it. 0 is none.
class MTypeId {
public:
    MTypeId() = default;
    MTypeId(unsigned int id) : m_id(id) {}
    MTypeId(unsigned int prefix, unsigned int id) : m_id((prefix << 8) | (id & 0xff)) {}

    unsigned int id(MStatus* ReturnStatus = nullptr) const
    {
        if (ReturnStatus)
            *ReturnStatus = MStatus::kSuccess;
        return m_id;
    }
    bool operator==(const MTypeId& other) const { return m_id == other.m_id; }
    bool operator!=(const MTypeId& other) const { return m_id != other.m_id; }

private:
    unsigned int m_id = 0;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
