#pragma once

#include "kernel/Node.h"
#include "kernel/Time.h"

#include <maya/MDagPath.h>
#include <maya/MFnBase.h>
#include <maya/MMatrix.h>
#include <maya/MObject.h>
#include <maya/MPlug.h>
#include <maya/MPxNode.h>
#include <maya/MSelectionList.h>
#include <maya/MString.h>
#include <maya/MTime.h>

#include <memory>
#include <string>
#include <variant>
#include <vector>

// How the host API's handles stand for the kernel's objects.

namespace api {

struct Module;

struct NodeRef {
    std::weak_ptr<kernel::Node> node;
};
/// What every root of the DAG has for a parent; the kernel has no node for it.
struct WorldRef {};
struct AttributeRef {
    kernel::AttributePtr attribute;
};
struct DataRef {
    std::shared_ptr<kernel::CustomData> data;
};
struct ModuleRef {
    std::weak_ptr<Module> module;
};

}  // namespace api

OPENMAYA_MAJOR_NAMESPACE_OPEN

struct MObject::Body {
    std::variant<api::NodeRef, api::WorldRef, api::AttributeRef, api::DataRef, api::ModuleRef> what;
};

struct MPxNode::Owner {
    kernel::Node& node;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE

namespace api {

/// The one way into the private parts of handles.
struct HandleAccess {
    static MObject make(MObject::Body body);
    static const MObject::Body* body(const MObject& object) { return object.m_body.get(); }
    static const MObject& node(const MPlug& plug) { return plug.m_node; }
    static const MObject& attribute(const MPlug& plug) { return plug.m_attribute; }
    static const MObject& node(const MDagPath& path) { return path.m_node; }
    static MDagPath path(const MObject& dagNode);
    static const MObject& object(const MFnBase& set) { return set.m_object; }
    using Owner = MPxNode::Owner;
    static Owner*& owner(MPxNode& node) { return node.m_owner; }
    static Owner* owner(const MPxNode& node) { return node.m_owner; }
};

// A null pointer gives the null object.
MObject toObject(const kernel::NodePtr& node);
MObject toObject(const kernel::AttributePtr& attribute);
MObject toObject(const std::shared_ptr<kernel::CustomData>& data);
MObject toObject(const std::shared_ptr<Module>& module);
MObject worldObject();
bool isWorld(const MObject& object);

// Null when the handle is of another kind or what it stood for is gone. A node may be out of the scene.
kernel::NodePtr nodeOf(const MObject& object);
kernel::NodePtr nodeOf(const MDagPath& path);
kernel::NodePtr nodeOf(const MPlug& plug);
kernel::AttributePtr attributeOf(const MObject& object);
kernel::AttributePtr attributeOf(const MPlug& plug);
std::shared_ptr<kernel::CustomData> dataOf(const MObject& object);
std::shared_ptr<Module> moduleRecordOf(const MObject& object);

/// The module's object behind a node; null for nodes of the host's own types.
MPxNode* userNodeOf(const kernel::Node& node);

/// Invalid for a null node and one outside the DAG.
MDagPath toPath(const kernel::NodePtr& node);
MSelectionList toSelectionList(const std::vector<kernel::NodePtr>& nodes);
/// The nodes of a list (those of its plugs too) that are in the scene, each once.
std::vector<kernel::NodePtr> nodesOf(const MSelectionList& list);

MMatrix toHost(const kernel::Matrix4& matrix);
kernel::Matrix4 toKernel(const MMatrix& matrix);
MTime toHost(const kernel::Time& time);
kernel::Time toKernel(const MTime& time);
MString toHost(const std::string& text);
std::string toKernel(const MString& text);

/// A function set's node, with the status written where one is wanted; null as above.
kernel::NodePtr nodeOf(const MFnBase& set, MStatus* status);

/// Writes a status where one is wanted and gives it back.
inline MStatus report(MStatus* out, MStatus::MStatusCode code)
{
    if (out)
        *out = code;
    return code;
}

}  // namespace api
