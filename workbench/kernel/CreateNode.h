#pragma once

#include "kernel/Edits.h"

#include <string>

namespace kernel {

class Session;

/// What createNode is asked for, by a command or a scene file.
struct NodeRequest {
    std::string type;
    std::string name;          ///< empty: made from the type
    NodePtr parent;            ///< null: none
    std::string absentParent;  ///< name of one that is not there, for the node to remember
    bool shared = false;       ///< an existing node of that name is taken instead
    bool keepUnknown = false;  ///< a type that is not available gives an unknown node
};

/// Makes the node, or finds a shared one. A shape without a parent gets a transform of its own. What was done is
/// added to `edits`. Throws CommandError for an unknown type or a parent that cannot have children.
NodePtr createNode(Session& session, const NodeRequest& request, EditList& edits);

}  // namespace kernel
