#pragma once

#include <maya/MFn.h>
#include <maya/MStatus.h>

#include <memory>

namespace api {
struct HandleAccess;
}

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A handle to something of the host. To a node it is a weak one: it stays non-null after the node is deleted, and
/// calls through it then fail. Attributes and data live as long as a handle to them does.
class MObject {
public:
    MObject();
    MObject(const MObject& other);
    ~MObject();
    MObject& operator=(const MObject& other);

    bool hasFn(MFn::Type type) const;
    bool isNull() const { return !m_body; }
    MFn::Type apiType() const;
    const char* apiTypeStr() const;

    bool operator==(const MObject& other) const;
    bool operator!=(const MObject& other) const { return !(*this == other); }
    bool operator!() const { return isNull(); }

    static MObject kNullObj;

private:
    friend struct api::HandleAccess;
    struct Body;
    explicit MObject(std::shared_ptr<const Body> body);
    std::shared_ptr<const Body> m_body;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
