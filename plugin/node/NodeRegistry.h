#pragma once

#include <vector>

class BaseNode;

/// The drawing nodes that live, in order of creation. A node lives longer than it is part of the scene: undo keeps
/// deleted ones.
class NodeRegistry {
public:
    static void add(BaseNode* node);
    static void remove(BaseNode* node);
    static std::vector<BaseNode*> nodesInScene();
    /// The first of them as the scene's hierarchy is walked depth first; null for none of them.
    static BaseNode* firstInHierarchy(const std::vector<BaseNode*>& nodes);
};
