#include "node/NodeRegistry.h"

#include "node/BaseNode.h"

#include <maya/MFn.h>
#include <maya/MFnDependencyNode.h>
#include <maya/MItDag.h>
#include <maya/MObjectHandle.h>

#include <algorithm>

namespace {

std::vector<BaseNode*>& liveNodes()
{
    static std::vector<BaseNode*> nodes;
    return nodes;
}

}  // namespace

void NodeRegistry::add(BaseNode* node)
{
    liveNodes().push_back(node);
}

void NodeRegistry::remove(BaseNode* node)
{
    std::vector<BaseNode*>& nodes = liveNodes();
    nodes.erase(std::remove(nodes.begin(), nodes.end(), node), nodes.end());
}

std::vector<BaseNode*> NodeRegistry::nodesInScene()
{
    std::vector<BaseNode*> nodes;
    for (BaseNode* node : liveNodes()) {
        if (MObjectHandle(node->thisMObject()).isValid()) {
            nodes.push_back(node);
        }
    }
    return nodes;
}

BaseNode* NodeRegistry::firstInHierarchy(const std::vector<BaseNode*>& nodes)
{
    if (nodes.size() == 1) {
        return nodes.front();
    }
    for (MItDag item(MItDag::kDepthFirst, MFn::kPluginLocatorNode); !nodes.empty() && !item.isDone(); item.next()) {
        BaseNode* node = BaseNode::fromObject(item.currentItem());
        if (std::find(nodes.begin(), nodes.end(), node) != nodes.end()) {
            return node;
        }
    }
    return nullptr;
}
