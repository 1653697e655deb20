#include <maya/MFnDagNode.h>

#include "api/Handles.h"
#include "api/NodeMaking.h"
#include "kernel/Command.h"
#include "kernel/Session.h"

#include <maya/MPxLocatorNode.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

using api::nodeOf;

kernel::Scene& scene()
{
    return kernel::Session::current().scene;
}

/// False for a parent that is out of the scene.
bool attach(const kernel::NodePtr& node, kernel::Node* parent, int index = -1)
{
    try {
        scene().attach(node, parent, index);
        return true;
    } catch (const kernel::CommandError&) {
        return false;
    }
}

MObject createInDag(MFnDagNode& set, const kernel::NodeType* type, const MString& name, const MObject& parentObject,
                    MStatus* status)
{
    const auto parent = api::nodeOf(parentObject);
    const bool knowsParent =
        parent ? parent->type().isTransform() : parentObject.isNull() || api::isWorld(parentObject);
    if (!type || !type->isDag() || !knowsParent) {
        api::report(status, MStatus::kInvalidParameter);
        return MObject();
    }
    const auto made = api::makeNode(*type, parent, api::toKernel(name));
    if (!attach(made.top(), parent.get()) || (made.transform && !attach(made.node, made.transform.get()))) {
        api::report(status, MStatus::kFailure);
        return MObject();
    }
    const MObject object = api::toObject(made.top());
    api::report(status, set.setObject(object).statusCode());
    return object;
}

/// Half the size of a primitive, which is centred on the origin; zero for other nodes.
MVector primitiveReach(const kernel::Node& node)
{
    const std::string& type = node.type().name;
    if (type == "implicitBox")
        return MVector(node.number("sizeX"), node.number("sizeY"), node.number("sizeZ")) / 2;
    const double radius = node.number("radius");
    if (type == "implicitSphere")
        return MVector(radius, radius, radius);
    if (type == "implicitCone")
        return MVector(radius, node.number("height") / 2, radius);
    return MVector::zero;
}

/// What a shape fills in its own space; a transform is as large as what is below it.
MBoundingBox boxOf(const kernel::Node& node)
{
    if (const auto* locator = dynamic_cast<const MPxLocatorNode*>(api::userNodeOf(node)))
        return locator->boundingBox();
    MBoundingBox box;
    if (node.type().role == kernel::NodeRole::Locator) {
        const MPoint centre(node.number("localPositionX"), node.number("localPositionY"),
                            node.number("localPositionZ"));
        const MVector arm(node.number("localScaleX"), node.number("localScaleY"), node.number("localScaleZ"));
        return MBoundingBox(centre - arm, centre + arm);
    }
    if (const MVector reach = primitiveReach(node); reach != MVector::zero)
        return MBoundingBox(MPoint(-reach), MPoint(reach));
    for (const auto& child : node.children()) {
        MBoundingBox below = boxOf(*child);
        if (child->type().isTransform())
            below.transformUsing(api::toHost(child->localMatrix()));
        box.expand(below);
    }
    return box;
}

}  // namespace

MFnDagNode::MFnDagNode() = default;

MFnDagNode::MFnDagNode(MObject& object, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, MFnDagNode::setObject(object).statusCode());
}

MFnDagNode::MFnDagNode(const MObject& object, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, MFnDagNode::setObject(object).statusCode());
}

MFnDagNode::MFnDagNode(const MDagPath& path, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, MFnDagNode::setObject(path).statusCode());
}

MFn::Type MFnDagNode::type() const
{
    return MFn::kDagNode;
}

MStatus MFnDagNode::setObject(MObject& object)
{
    return setObject(const_cast<const MObject&>(object));
}

MStatus MFnDagNode::setObject(const MObject& object)
{
    m_path = MDagPath();
    return MFnDependencyNode::setObject(object);
}

MStatus MFnDagNode::setObject(const MDagPath& path)
{
    const MStatus status = path.isValid() ? MFnDependencyNode::setObject(path.node()) : MStatus(MStatus::kFailure);
    m_path = status ? path : MDagPath();
    if (!status)
        m_object = MObject();
    return status;
}

MObject MFnDagNode::create(const MTypeId& typeId, MObject& parent, MStatus* ReturnStatus)
{
    return createInDag(*this, api::nodeType(typeId), MString(), parent, ReturnStatus);
}

MObject MFnDagNode::create(const MTypeId& typeId, const MString& name, MObject& parent, MStatus* ReturnStatus)
{
    return createInDag(*this, api::nodeType(typeId), name, parent, ReturnStatus);
}

MObject MFnDagNode::create(const MString& typeName, MObject& parent, MStatus* ReturnStatus)
{
    return createInDag(*this, api::nodeType(typeName), MString(), parent, ReturnStatus);
}

MObject MFnDagNode::create(const MString& typeName, const MString& name, MObject& parent, MStatus* ReturnStatus)
{
    return createInDag(*this, api::nodeType(typeName), name, parent, ReturnStatus);
}

unsigned int MFnDagNode::parentCount(MStatus* ReturnStatus)
{
    const auto node = nodeOf(*this, ReturnStatus);
    return node && node->isInScene() ? 1 : 0;
}

MObject MFnDagNode::parent(unsigned int index, MStatus* ReturnStatus)
{
    const auto node = nodeOf(*this, ReturnStatus);
    if (!node || !node->isInScene() || index > 0) {
        api::report(ReturnStatus, MStatus::kInvalidParameter);
        return MObject();
    }
    return node->parent() ? api::toObject(node->parent()->shared_from_this()) : api::worldObject();
}

unsigned int MFnDagNode::childCount(MStatus* ReturnStatus)
{
    const auto node = nodeOf(*this, ReturnStatus);
    return node ? static_cast<unsigned int>(node->children().size()) : 0;
}

MObject MFnDagNode::child(unsigned int index, MStatus* ReturnStatus)
{
    const auto node = nodeOf(*this, ReturnStatus);
    if (!node || index >= node->children().size()) {
        api::report(ReturnStatus, MStatus::kInvalidParameter);
        return MObject();
    }
    return api::toObject(node->children()[index]);
}

MStatus MFnDagNode::addChild(MObject& child, unsigned int index, bool keepExistingParents)
{
    const auto node = nodeOf(*this, nullptr);
    const auto added = api::nodeOf(child);
    if (!node || !added || !added->type().isDag() || added->referenced || keepExistingParents)
        return MStatus::kInvalidParameter;
    const int place = index == kNextPos ? -1 : int(index);
    if (!added->isInScene())
        return attach(added, node.get(), place) ? MStatus::kSuccess : MStatus::kInvalidParameter;
    try {
        scene().setParent(added, node.get(), place);
        return MStatus::kSuccess;
    } catch (const kernel::CommandError&) {
        return MStatus::kInvalidParameter;
    }
}

MStatus MFnDagNode::getPath(MDagPath& path)
{
    return MDagPath::getAPathTo(m_object, path);
}

MDagPath MFnDagNode::dagPath(MStatus* ReturnStatus)
{
    api::report(ReturnStatus, m_path.isValid() ? MStatus::kSuccess : MStatus::kFailure);
    return m_path;
}

MString MFnDagNode::fullPathName(MStatus* ReturnStatus)
{
    const auto node = nodeOf(*this, ReturnStatus);
    return node ? api::toHost(scene().fullPath(*node)) : MString();
}

MString MFnDagNode::partialPathName(MStatus* ReturnStatus)
{
    const auto node = nodeOf(*this, ReturnStatus);
    return node ? api::toHost(scene().partialPath(*node)) : MString();
}

MBoundingBox MFnDagNode::boundingBox(MStatus* ReturnStatus) const
{
    const auto node = nodeOf(*this, ReturnStatus);
    return node ? boxOf(*node) : MBoundingBox();
}

MMatrix MFnDagNode::transformationMatrix(MStatus* ReturnStatus)
{
    const auto node = nodeOf(*this, ReturnStatus);
    return node ? api::toHost(node->localMatrix()) : MMatrix();
}

bool MFnDagNode::isIntermediateObject(MStatus* ReturnStatus)
{
    const auto node = nodeOf(*this, ReturnStatus);
    return node && node->number("intermediateObject") != 0;
}

bool MFnDagNode::inModel(MStatus* ReturnStatus)
{
    const auto node = nodeOf(*this, ReturnStatus);
    return node && node->isInScene();
}

bool MFnDagNode::isInstanced(bool, MStatus* ReturnStatus)
{
    nodeOf(*this, ReturnStatus);
    return false;
}

unsigned int MFnDagNode::instanceCount(bool, MStatus* ReturnStatus)
{
    return nodeOf(*this, ReturnStatus) ? 1 : 0;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
