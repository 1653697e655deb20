#include "api/LegacyNodes.h"

#include "api/Access.h"
#include "api/Handles.h"
#include "api/Registration.h"

#include <maya/MPxLocatorNode.h>

#include <algorithm>

namespace api {

namespace {

MPxLocatorNode* locatorOf(const kernel::Node& node)
{
    return dynamic_cast<MPxLocatorNode*>(userNodeOf(node));
}

/// Lower ones are drawn first.
int rankOf(const kernel::Node& node)
{
    const ModuleScope scope(node.type().plugin);
    const MPxLocatorNode& locator = *locatorOf(node);
    try {
        return locator.drawLast() ? 2 : locator.isTransparent() ? 1 : 0;
    } catch (...) {
        return 0;  // drawing it is where failures are told
    }
}

}  // namespace

std::vector<kernel::NodePtr> legacyNodes(const kernel::Session& session)
{
    std::vector<std::pair<int, kernel::NodePtr>> ranked;
    session.scene.walkDag([&](kernel::Node& node) {
        if (!node.isVisible())
            return false;
        if (locatorOf(node))
            ranked.emplace_back(rankOf(node), node.shared_from_this());
        return true;
    });
    std::stable_sort(ranked.begin(), ranked.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<kernel::NodePtr> nodes;
    for (const auto& entry : ranked)
        nodes.push_back(entry.second);
    return nodes;
}

void drawLegacyNode(const kernel::NodePtr& node, View& view, bool wireframe, bool selected)
{
    MPxLocatorNode* const locator = locatorOf(*node);
    if (!locator)
        return;
    const ModuleScope scope(node->type().plugin);
    M3dView handle = Access::viewOf(&view);
    locator->draw(handle, toPath(node), wireframe ? M3dView::kWireFrame : M3dView::kGouraudShaded,
                  selected ? M3dView::kLead : M3dView::kDormant);
}

}  // namespace api
