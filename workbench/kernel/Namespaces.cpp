#include "kernel/Scene.h"

#include <algorithm>

namespace kernel {

namespace {

bool liesIn(const std::string& name, const std::string& nameSpace)
{
    return name.size() > nameSpace.size() && name[nameSpace.size()] == ':'
        && name.compare(0, nameSpace.size(), nameSpace) == 0;
}

bool isUsed(const ReferenceList& references, const std::string& nameSpace)
{
    return std::any_of(references.begin(), references.end(), [&](const auto& reference) {
        return reference->nameSpace == nameSpace || isUsed(reference->inner, nameSpace);
    });
}

}  // namespace

bool Scene::hasNamespace(const std::string& name) const
{
    return m_namespaces.count(name) != 0 || isUsed(references, name)
        || std::any_of(m_nodes.begin(), m_nodes.end(), [&](const NodePtr& node) { return liesIn(node->m_name, name); });
}

bool Scene::isNamespaceEmpty(const std::string& name) const
{
    return !isUsed(references, name) && std::none_of(m_nodes.begin(), m_nodes.end(), [&](const NodePtr& node) {
        return liesIn(node->m_name, name);
    });
}

std::string Scene::freeNamespace(const std::string& wanted) const
{
    std::string name = wanted;
    for (int number = 1; hasNamespace(name); ++number)
        name = wanted + std::to_string(number);
    return name;
}

}  // namespace kernel
