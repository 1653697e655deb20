#pragma once

#include <maya/MObject.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A node handle to be kept across changes of the scene.
class MObjectHandle {
public:
    MObjectHandle() = default;
    MObjectHandle(const MObject& object) : m_object(object) {}

    bool isValid() const;  ///< the node is part of the scene
    bool isAlive() const;  ///< the node exists, if only in the undo queue
    MObject object() const;
    const MObject& objectRef() const { return m_object; }
    unsigned int hashCode() const;

    MObjectHandle& operator=(const MObject& object)
    {
        m_object = object;
        return *this;
    }
    bool operator==(const MObjectHandle& other) const { return m_object == other.m_object; }
    bool operator==(const MObject& object) const { return m_object == object; }
    bool operator!=(const MObjectHandle& other) const { return m_object != other.m_object; }
    bool operator!=(const MObject& object) const { return m_object != object; }

private:
    MObject m_object;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
