#pragma once

#include "kernel/CreateNode.h"

#include <string>

namespace mel {

/// The arguments of createNode.
struct CreateNodeArguments {
    std::string type;
    std::string name;    ///< empty: made from the type
    std::string parent;  ///< empty: none
    bool shared = false;
    bool skipSelect = false;
};

CreateNodeArguments parseCreateNode(const kernel::ValueList& args);

}  // namespace mel
