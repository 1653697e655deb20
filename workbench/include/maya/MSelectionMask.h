#pragma once

#include <maya/MTypes.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Kinds of things a pick may select.
class MSelectionMask {
public:
    enum SelectionType { kSelectHandles = 0, kSelectLocators = 17, kSelectCameras = 11, kSelectObjectsMask = 1000 };

    MSelectionMask() = default;
    MSelectionMask(SelectionType type) : m_types(bit(type)) {}

    void addMask(SelectionType type) { m_types |= bit(type); }
    bool intersects(const MSelectionMask& other) const { return (m_types & other.m_types) != 0; }
    bool intersects(SelectionType type) const { return (m_types & bit(type)) != 0; }

private:
    static MUint64 bit(SelectionType type) { return type >= 64 ? ~MUint64(0) : MUint64(1) << type; }
    MUint64 m_types = 0;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
