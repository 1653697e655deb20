#pragma once

#include <maya/MString.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A node's identity, as saved with the scene.
class MUuid {
public:
    MUuid() = default;
    MUuid(const MString& text) : m_text(text) {}

    bool valid(MStatus* ReturnStatus = nullptr) const;
    MString asString(MStatus* ReturnStatus = nullptr) const;
    bool operator==(const MUuid& other) const { return m_text == other.m_text; }
    bool operator!=(const MUuid& other) const { return m_text != other.m_text; }

private:
    MString m_text;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
