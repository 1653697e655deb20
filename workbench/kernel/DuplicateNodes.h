#pragma once

#include "kernel/Edits.h"

#include <string>
#include <vector>

namespace kernel {

class Session;

/// Copies nodes with all below them, beside the originals, and gives the copies of the nodes named. What lies below
/// another of them goes with that one. The copies belong to the scene: they are neither shared nor referenced, and have
/// no namespace. Modules copy their own data. What was done is added to `edits`.
/// name: of the first copy; empty: the original's with the next free number.
std::vector<NodePtr> duplicateNodes(Session& session, const std::vector<NodePtr>& nodes, const std::string& name,
                                    EditList& edits);

}  // namespace kernel
