#pragma once

#include "kernel/Node.h"

#include <map>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace kernel {

/// The nodes of a scene by their names. A node that is to get another name is taken out before and put in again after.
class NameIndex {
public:
    void add(const NodePtr& node);
    void remove(const NodePtr& node);
    /// In order of creation. Borrowed until the next change.
    const std::vector<NodePtr>& nodes(const std::string& name) const;

    /// Numbers that are known to be taken behind a name, so that whoever looks for a free one need not count from the
    /// first each time.
    struct TakenRun {
        int first = 0;
        int end = 0;  ///< the first that may be free
    };
    /// For the caller to keep up to date; forgotten when any name becomes free.
    /// scope: among which nodes the name is taken, as the caller tells them apart.
    TakenRun& takenRun(const void* scope, const std::string& stem) { return m_runs[{scope, stem}]; }

private:
    std::unordered_map<std::string, std::vector<NodePtr>> m_nodes;
    std::map<std::pair<const void*, std::string>, TakenRun> m_runs;
};

}  // namespace kernel
