#include "node/MasterDrawing.h"

#include "model/LayerListView.h"
#include "model/LayerManager.h"
#include "node/BaseNode.h"

std::shared_ptr<LayerManager> masterDrawing()
{
    const BaseNode* node = BaseNode::masterNode();
    return node ? node->layerManager() : nullptr;
}

void publishMasterDrawing()
{
    if (const std::shared_ptr<LayerManager> drawing = masterDrawing()) {
        drawing->publish();
    } else if (LayerListView* list = LayerManager::layerListView()) {
        list->refresh();
    }
}
