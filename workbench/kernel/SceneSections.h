#pragma once

#include "kernel/Node.h"

#include <map>
#include <set>
#include <string>
#include <vector>

namespace kernel {

class Scene;
class Session;

// What a scene file says, in whatever form it is written.

/// Name of the script node that carries the playback range. It exists in files only: it is made when the scene is
/// written, and dropped again once it has run.
extern const char* const kSceneConfigurationNode;
/// Script nodes of this type run after the scene has been read.
constexpr int kSceneConfigurationType = 6;
/// What that node runs.
std::string configurationScript(const Scene& scene);

/// Keys and values about the program that saves.
constexpr int kFileInfoCount = 5;
extern const char* const kFileInfo[kFileInfoCount][2];

/// What a scene uses of a module.
struct ModuleUse {
    std::string version;
    std::set<std::string> nodeTypes;
    std::set<std::string> dataTypes;
};
using ModuleUses = std::map<std::string, ModuleUse>;  ///< by the module's name
ModuleUses modulesInUse(const Session& session);
std::string requiresStatement(const std::string& module, const ModuleUse& use);

/// The statements the scene keeps of one section ("requires", "fileInfo"; empty: those of no other), without
/// those it says by itself. modules: those whose `requires` the scene says.
std::vector<std::string> keptStatements(const Scene& scene, const std::string& section, ModuleUses modules = {});
/// The nodes with a section of their own, parents before their children.
std::vector<NodePtr> nodesToWrite(const Scene& scene);

}  // namespace kernel
