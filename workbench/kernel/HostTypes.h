#pragma once

namespace kernel {

class NodeTypes;

/// Registers the host's own node types, base types first.
void addHostTypes(NodeTypes& types);

}  // namespace kernel
