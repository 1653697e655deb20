#pragma once

#include "api/Handles.h"

#include <memory>

namespace api {

/// Ties a module's object to the kernel's node it stands behind; the node owns it.
class ModuleNode : public kernel::NodeProxy {
public:
    /// The object must be new; a null one (a creator that failed) leaves the node without.
    ModuleNode(kernel::Node& node, MPxNode* object);
    ~ModuleNode() override;
    ModuleNode(const ModuleNode&) = delete;
    ModuleNode& operator=(const ModuleNode&) = delete;

    void postConstructor() override;
    MPxNode* object() const { return m_object.get(); }

private:
    std::unique_ptr<HandleAccess::Owner> m_owner;
    std::unique_ptr<MPxNode> m_object;
};

}  // namespace api
