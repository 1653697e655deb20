#include "api/ModuleNode.h"

namespace api {

ModuleNode::ModuleNode(kernel::Node& node, MPxNode* object) : m_owner(new HandleAccess::Owner{node}), m_object(object)
{
    if (m_object)
        HandleAccess::owner(*m_object) = m_owner.get();
}

ModuleNode::~ModuleNode() = default;

void ModuleNode::postConstructor()
{
    if (m_object)
        m_object->postConstructor();
}

}  // namespace api
