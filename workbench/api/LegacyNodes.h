#pragma once

#include "api/Views.h"
#include "kernel/Session.h"

namespace api {

/// The locators that modules draw themselves in a legacy view, those that are seen, in the order in which they are
/// drawn: opaque ones, transparent ones, those that want to be last.
std::vector<kernel::NodePtr> legacyNodes(const kernel::Session& session);

/// Has one of them draw itself with the OpenGL context that is current. selected: it, or its transform.
/// Passes on what the module throws.
void drawLegacyNode(const kernel::NodePtr& node, View& view, bool wireframe, bool selected);

}  // namespace api
