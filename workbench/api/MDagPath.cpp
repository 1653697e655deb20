#include <maya/MDagPath.h>

#include "api/Handles.h"
#include "kernel/Session.h"

#include <maya/MDagPathArray.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

using Nodes = std::vector<kernel::NodePtr>;

/// What is right below a path's end; the world has the roots. Borrowed until the next change: whoever walks over many
/// children asks for each of them.
const Nodes& childrenOf(const MObject& object)
{
    static const Nodes none;
    if (api::isWorld(object))
        return kernel::Session::current().scene.roots();
    const auto node = api::nodeOf(object);
    return node ? node->children() : none;
}

Nodes shapesBelow(const MObject& object)
{
    Nodes shapes;
    for (const auto& child : childrenOf(object)) {
        if (child->type().isShape())
            shapes.push_back(child);
    }
    return shapes;
}

MObject parentObject(const kernel::Node& node)
{
    return node.parent() ? api::toObject(node.parent()->shared_from_this()) : api::worldObject();
}

}  // namespace

MDagPath::MDagPath() = default;

bool MDagPath::operator==(const MDagPath& other) const
{
    return m_node == other.m_node;
}

MStatus MDagPath::getAPathTo(const MObject& node, MDagPath& path)
{
    const auto target = api::nodeOf(node);
    if (!api::isWorld(node) && !(target && target->type().isDag() && target->isInScene()))
        return MStatus::kInvalidParameter;
    path = api::HandleAccess::path(node);
    return MStatus::kSuccess;
}

MDagPath MDagPath::getAPathTo(const MObject& node)
{
    MDagPath path;
    getAPathTo(node, path);
    return path;
}

MStatus MDagPath::getAllPathsTo(const MObject& node, MDagPathArray& paths)
{
    MDagPath path;
    const MStatus status = getAPathTo(node, path);
    paths.clear();
    if (status)
        paths.append(path);
    return status;
}

bool MDagPath::isValid(MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, MStatus::kSuccess);
    const auto node = api::nodeOf(m_node);
    return api::isWorld(m_node) || (node && node->isInScene());
}

MObject MDagPath::node(MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, m_node.isNull() ? MStatus::kFailure : MStatus::kSuccess);
    return m_node;
}

MObject MDagPath::transform(MStatus* ReturnStatus) const
{
    auto node = api::nodeOf(m_node);
    while (node && !node->type().isTransform())
        node = node->parent() ? node->parent()->shared_from_this() : nullptr;
    api::report(ReturnStatus, node ? MStatus::kSuccess : MStatus::kFailure);
    return api::toObject(node);
}

MFn::Type MDagPath::apiType(MStatus* ReturnStatus) const
{
    const MFn::Type type = m_node.apiType();
    api::report(ReturnStatus, type == MFn::kInvalid ? MStatus::kFailure : MStatus::kSuccess);
    return type;
}

/// A path to a transform counts as what its one shape is, too: that is how plug-ins sort a selection.
bool MDagPath::hasFn(MFn::Type type, MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, m_node.isNull() ? MStatus::kFailure : MStatus::kSuccess);
    if (m_node.hasFn(type))
        return true;
    const Nodes shapes = m_node.hasFn(MFn::kTransform) ? shapesBelow(m_node) : Nodes();
    return shapes.size() == 1 && api::toObject(shapes.front()).hasFn(type);
}

MStatus MDagPath::extendToShape()
{
    if (m_node.hasFn(MFn::kShape))
        return MStatus::kSuccess;
    const Nodes shapes = shapesBelow(m_node);
    if (shapes.size() != 1)
        return MStatus::kFailure;
    m_node = api::toObject(shapes.front());
    return MStatus::kSuccess;
}

MStatus MDagPath::extendToShapeDirectlyBelow(unsigned int index)
{
    const Nodes shapes = shapesBelow(m_node);
    if (index >= shapes.size())
        return MStatus::kInvalidParameter;
    m_node = api::toObject(shapes[index]);
    return MStatus::kSuccess;
}

MStatus MDagPath::numberOfShapesDirectlyBelow(unsigned int& number) const
{
    if (!isValid())
        return MStatus::kFailure;
    number = static_cast<unsigned int>(shapesBelow(m_node).size());
    return MStatus::kSuccess;
}

MStatus MDagPath::pop(unsigned int number)
{
    if (number > length())
        return MStatus::kInvalidParameter;
    for (; number > 0; --number)
        m_node = parentObject(*api::nodeOf(m_node));
    return MStatus::kSuccess;
}

MStatus MDagPath::push(const MObject& child)
{
    const auto node = api::nodeOf(child);
    if (!node || !node->type().isDag() || !(parentObject(*node) == m_node))
        return MStatus::kInvalidParameter;
    m_node = child;
    return MStatus::kSuccess;
}

unsigned int MDagPath::length(MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, isValid() ? MStatus::kSuccess : MStatus::kFailure);
    unsigned int nodes = 0;
    const auto end = api::nodeOf(m_node);
    for (const kernel::Node* node = end.get(); node; node = node->parent())
        ++nodes;
    return nodes;
}

unsigned int MDagPath::childCount(MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, isValid() ? MStatus::kSuccess : MStatus::kFailure);
    return static_cast<unsigned int>(childrenOf(m_node).size());
}

MObject MDagPath::child(unsigned int index, MStatus* ReturnStatus) const
{
    const Nodes& children = childrenOf(m_node);
    const bool exists = index < children.size();
    api::report(ReturnStatus, exists ? MStatus::kSuccess : MStatus::kInvalidParameter);
    return exists ? api::toObject(children[index]) : MObject();
}

MMatrix MDagPath::inclusiveMatrix(MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, isValid() ? MStatus::kSuccess : MStatus::kFailure);
    const auto node = api::nodeOf(m_node);
    return node ? api::toHost(node->worldMatrix()) : MMatrix();
}

MMatrix MDagPath::exclusiveMatrix(MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, isValid() ? MStatus::kSuccess : MStatus::kFailure);
    const auto node = api::nodeOf(m_node);
    return node && node->parent() ? api::toHost(node->parent()->worldMatrix()) : MMatrix();
}

MMatrix MDagPath::inclusiveMatrixInverse(MStatus* ReturnStatus) const
{
    return inclusiveMatrix(ReturnStatus).inverse();
}

MMatrix MDagPath::exclusiveMatrixInverse(MStatus* ReturnStatus) const
{
    return exclusiveMatrix(ReturnStatus).inverse();
}

MString MDagPath::fullPathName(MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, isValid() ? MStatus::kSuccess : MStatus::kFailure);
    const auto node = api::nodeOf(m_node);
    return node ? api::toHost(kernel::Session::current().scene.fullPath(*node)) : MString();
}

MString MDagPath::partialPathName(MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, isValid() ? MStatus::kSuccess : MStatus::kFailure);
    const auto node = api::nodeOf(m_node);
    return node ? api::toHost(kernel::Session::current().scene.partialPath(*node)) : MString();
}

bool MDagPath::isVisible(MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, isValid() ? MStatus::kSuccess : MStatus::kFailure);
    const auto node = api::nodeOf(m_node);
    return node && node->isVisible();
}

bool MDagPath::isTemplated(MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, isValid() ? MStatus::kSuccess : MStatus::kFailure);
    const auto end = api::nodeOf(m_node);
    for (const kernel::Node* node = end.get(); node; node = node->parent()) {
        if (node->number("template") != 0)
            return true;
    }
    return false;
}

bool MDagPath::isInstanced(MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, isValid() ? MStatus::kSuccess : MStatus::kFailure);
    return false;
}

unsigned int MDagPath::instanceNumber(MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, isValid() ? MStatus::kSuccess : MStatus::kFailure);
    return 0;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
