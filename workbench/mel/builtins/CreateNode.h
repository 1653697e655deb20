#pragma once

#include "kernel/Edits.h"
#include "kernel/Session.h"

#include <string>

namespace mel {

/// The arguments of createNode.
struct NodeRequest {
    std::string type;
    std::string unknownType;  ///< the type asked for when the workbench has no such type; `type` is empty then
    std::string name;         ///< empty: made from the type
    std::string parent;       ///< empty: none
    bool shared = false;      ///< an existing node of that name is taken instead
    bool skipSelect = false;
};

NodeRequest parseCreateNode(const kernel::ValueList& args);

/// Makes the node, or finds a shared one. A shape without a parent gets a transform of its own. What was done is
/// added to `edits`. Throws CommandError for an unknown type or parent.
kernel::NodePtr createNode(kernel::Session& session, const NodeRequest& request, kernel::EditList& edits);

}  // namespace mel
