#include "commands/GhostRefresh.h"

#include "model/LayerManager.h"
#include "node/BaseNode.h"

bool rebuildGhosts()
{
    BaseNode* node = BaseNode::masterNode();
    const std::shared_ptr<LayerManager> manager = node ? node->layerManager() : nullptr;
    if (!manager) {
        return false;
    }
    manager->markForRedraw(manager->currentCamera());
    node->requestRedraw();
    return true;
}
