#include "kernel/NameIndex.h"

#include <algorithm>

namespace kernel {

void NameIndex::add(const NodePtr& node)
{
    std::vector<NodePtr>& named = m_nodes[node->name()];
    named.insert(std::upper_bound(named.begin(), named.end(), node, isOlder), node);
}

void NameIndex::remove(const NodePtr& node)
{
    const auto named = m_nodes.find(node->name());
    named->second.erase(std::lower_bound(named->second.begin(), named->second.end(), node, isOlder));
    if (named->second.empty())
        m_nodes.erase(named);
    m_runs.clear();
}

const std::vector<NodePtr>& NameIndex::nodes(const std::string& name) const
{
    static const std::vector<NodePtr> none;
    const auto named = m_nodes.find(name);
    return named == m_nodes.end() ? none : named->second;
}

}  // namespace kernel
