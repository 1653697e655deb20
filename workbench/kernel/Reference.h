#pragma once

#include "kernel/Node.h"
#include "kernel/Value.h"

#include <memory>
#include <string>
#include <vector>

namespace kernel {

/// Changes that a scene makes to the nodes of one reference, as its file holds them: the code of what is changed and
/// the words that go with it. {2, "|set:house", "translate", " -type \"double3\" 0 0 4"} sets a value.
struct ReferenceEdits {
    std::string reference;  ///< name of the reference node
    std::vector<ValueList> edits;
};
constexpr int kSetAttrEdit = 2;

/// A file whose nodes the scene shows under a namespace, but does not own.
struct Reference {
    std::string file;               ///< as the scene file names it; may be relative
    std::string path;               ///< absolute
    int copy = 0;                   ///< tells references to the same file apart: "set.ma{1}"
    std::string nameSpace;          ///< in the scene, "set" or "set:inner"; empty: the root
    std::vector<Value> otherFlags;  ///< of its statement, with their values, written back as they were
    bool isDeferred = false;        ///< not to be read with the scene
    bool isLoaded = false;
    NodePtr node;                ///< stands for it in the scene
    std::vector<NodePtr> nodes;  ///< the file's own
    /// What a scene file says of its nodes beside values that could be set: those are in the nodes.
    std::vector<ReferenceEdits> keptEdits;
    Reference* outer = nullptr;  ///< in whose file it is made; null: in the scene itself
    std::vector<std::unique_ptr<Reference>> inner;

    /// The path, with the number of the copy from the second on.
    std::string name() const { return copy == 0 ? path : path + '{' + std::to_string(copy) + '}'; }
};
using ReferenceList = std::vector<std::unique_ptr<Reference>>;

}  // namespace kernel
