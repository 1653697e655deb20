#pragma once

#include "kernel/Node.h"

#include <maya/MString.h>
#include <maya/MTypeId.h>

#include <string>

namespace api {

/// Null for an unknown type.
const kernel::NodeType* nodeType(const MTypeId& id);
const kernel::NodeType* nodeType(const MString& name);

/// A new node that is not in the scene yet, with the transform it needs above it when it is a shape without a parent.
struct NewNode {
    kernel::NodePtr node;
    kernel::NodePtr transform;  ///< null when none was needed
    kernel::NodePtr parent;     ///< of the topmost of the two; null for the world and nodes outside the DAG

    /// What a caller who asked for the node is given.
    const kernel::NodePtr& top() const { return transform ? transform : node; }
};

/// name: of what top() gives; empty for one made of the type's name. A shape gets its transform's name with "Shape".
NewNode makeNode(const kernel::NodeType& type, const kernel::NodePtr& parent, const std::string& name);

}  // namespace api
