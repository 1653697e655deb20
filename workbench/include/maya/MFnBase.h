#pragma once

#include <maya/MObject.h>

namespace api {
struct HandleAccess;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Base of the function sets. A set attached to an object it cannot serve fails and stays without one.
class MFnBase {
public:
    virtual ~MFnBase();
    virtual MFn::Type type() const;
    bool hasObj(MFn::Type type) const;
    bool hasObj(const MObject& object) const;
    MObject object(MStatus* ReturnStatus = nullptr) const;
    virtual MStatus setObject(MObject& object);
    virtual MStatus setObject(const MObject& object);

protected:
    MFnBase();
    MFnBase(const MFnBase&) = default;
    MFnBase& operator=(const MFnBase&) = default;
    friend struct api::HandleAccess;
    MObject m_object;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
