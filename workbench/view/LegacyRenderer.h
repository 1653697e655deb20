#pragma once

#include "api/DrawList.h"
#include "kernel/Session.h"
#include "view/SceneRenderer.h"

namespace view {

/// Lets the locators of modules draw themselves into a legacy view. To be used with a context current.
class LegacyRenderer {
public:
    /// What a module leaves changed in OpenGL is put back. A node that throws is told once and not drawn again.
    void draw(kernel::Session& session, const api::FrameState& frame, api::View& view, const ViewOptions& options);

private:
    bool hasFailed(const kernel::NodePtr& node) const;

    std::vector<std::weak_ptr<kernel::Node>> m_failed;
};

}  // namespace view
