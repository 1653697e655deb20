#pragma once

#include <maya/MDagPath.h>

#include <deque>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Walks the DAG from the world or another root, which is visited first. Changes of the graph during a walk show in
/// what has not been reached yet.
class MItDag {
public:
    enum TraversalType { kInvalidType, kDepthFirst, kBreadthFirst };

    MItDag(TraversalType traversal = kDepthFirst, MFn::Type filter = MFn::kInvalid, MStatus* ReturnStatus = nullptr);

    MStatus reset();
    MStatus reset(const MObject& root, TraversalType traversal = kDepthFirst, MFn::Type filter = MFn::kInvalid);
    MStatus reset(const MDagPath& root, TraversalType traversal = kDepthFirst, MFn::Type filter = MFn::kInvalid);
    bool isDone(MStatus* ReturnStatus = nullptr) const;
    MStatus next();
    MStatus prune();  ///< what is below the current item is not visited
    MObject currentItem(MStatus* ReturnStatus = nullptr);
    OPENMAYA_DEPRECATED(2018, "Use currentItem.")
    MObject item(MStatus* ReturnStatus = nullptr);
    MObject root(MStatus* ReturnStatus = nullptr);
    MStatus getPath(MDagPath& path) const;
    MStatus getAllPaths(MDagPathArray& paths) const;
    unsigned int depth(MStatus* ReturnStatus = nullptr) const;  ///< 0 for the root
    MString fullPathName(MStatus* ReturnStatus = nullptr) const;
    MString partialPathName(MStatus* ReturnStatus = nullptr) const;
    bool isInstanced(bool indirect = true, MStatus* ReturnStatus = nullptr) const;
    unsigned int instanceCount(bool total, MStatus* ReturnStatus = nullptr) const;
    MStatus traverseUnderWorld(bool enabled);  ///< there is no under-world here

private:
    struct Stop {
        MObject node;
        unsigned int depth;
    };
    void advance();
    MObject m_root;
    TraversalType m_traversal;
    MFn::Type m_filter;
    Stop m_current;
    bool m_isPruned = false;
    std::deque<Stop> m_ahead;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
