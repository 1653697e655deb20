#include <maya/MItDag.h>

#include "api/Handles.h"

#include <maya/MDagPathArray.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

MItDag::MItDag(TraversalType traversal, MFn::Type filter, MStatus* ReturnStatus)
{
    api::report(ReturnStatus, reset(api::worldObject(), traversal, filter).statusCode());
}

MStatus MItDag::reset()
{
    return reset(api::worldObject(), m_traversal, m_filter);
}

MStatus MItDag::reset(const MObject& root, TraversalType traversal, MFn::Type filter)
{
    MDagPath path;
    const MStatus status = MDagPath::getAPathTo(root, path);
    m_root = status ? root : MObject();
    m_traversal = traversal;
    m_filter = filter;
    m_ahead.clear();
    m_isPruned = false;
    m_current = {m_root, 0};
    if (status && filter != MFn::kInvalid && !root.hasFn(filter))
        advance();
    return status;
}

MStatus MItDag::reset(const MDagPath& root, TraversalType traversal, MFn::Type filter)
{
    return reset(root.node(), traversal, filter);
}

bool MItDag::isDone(MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, MStatus::kSuccess);
    return m_current.node.isNull();
}

MStatus MItDag::next()
{
    if (isDone())
        return MStatus::kFailure;
    advance();
    return MStatus::kSuccess;
}

MStatus MItDag::prune()
{
    m_isPruned = true;
    return isDone() ? MStatus::kFailure : MStatus::kSuccess;
}

void MItDag::advance()
{
    do {
        MDagPath path = api::HandleAccess::path(m_current.node);
        const unsigned int children = m_isPruned ? 0 : path.childCount();
        for (unsigned int i = 0; i < children; ++i) {
            // Depth first goes down at once: the first child has to end up foremost.
            const unsigned int index = m_traversal == kBreadthFirst ? i : children - 1 - i;
            const Stop stop{path.child(index), m_current.depth + 1};
            if (m_traversal == kBreadthFirst)
                m_ahead.push_back(stop);
            else
                m_ahead.push_front(stop);
        }
        m_isPruned = false;
        m_current = m_ahead.empty() ? Stop{MObject(), 0} : m_ahead.front();
        if (!m_ahead.empty())
            m_ahead.pop_front();
    } while (!isDone()
             && (!api::HandleAccess::path(m_current.node).isValid()
                 || (m_filter != MFn::kInvalid && !m_current.node.hasFn(m_filter))));
}

MObject MItDag::currentItem(MStatus* ReturnStatus)
{
    api::report(ReturnStatus, isDone() ? MStatus::kFailure : MStatus::kSuccess);
    return m_current.node;
}

MObject MItDag::item(MStatus* ReturnStatus)
{
    return currentItem(ReturnStatus);
}

MObject MItDag::root(MStatus* ReturnStatus)
{
    api::report(ReturnStatus, m_root.isNull() ? MStatus::kFailure : MStatus::kSuccess);
    return m_root;
}

MStatus MItDag::getPath(MDagPath& path) const
{
    return MDagPath::getAPathTo(m_current.node, path);
}

MStatus MItDag::getAllPaths(MDagPathArray& paths) const
{
    return MDagPath::getAllPathsTo(m_current.node, paths);
}

unsigned int MItDag::depth(MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, isDone() ? MStatus::kFailure : MStatus::kSuccess);
    return m_current.depth;
}

MString MItDag::fullPathName(MStatus* ReturnStatus) const
{
    return api::HandleAccess::path(m_current.node).fullPathName(ReturnStatus);
}

MString MItDag::partialPathName(MStatus* ReturnStatus) const
{
    return api::HandleAccess::path(m_current.node).partialPathName(ReturnStatus);
}

bool MItDag::isInstanced(bool, MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, isDone() ? MStatus::kFailure : MStatus::kSuccess);
    return false;
}

unsigned int MItDag::instanceCount(bool, MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, isDone() ? MStatus::kFailure : MStatus::kSuccess);
    return isDone() ? 0 : 1;
}

MStatus MItDag::traverseUnderWorld(bool)
{
    return MStatus::kSuccess;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
