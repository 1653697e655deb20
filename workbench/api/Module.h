#pragma once

#include "kernel/Session.h"

#include <memory>
#include <string>
#include <vector>

namespace api {

/// One loaded module. Its commands, tools and draw overrides are in the lists of Registration.h.
struct Module {
    std::string name;  ///< the file's base name, or the one its loading asked for
    std::string path;
    std::string vendor = "Unknown";
    std::string version = "Unknown";
    std::string apiVersion = "Unknown";  ///< that it was built against
    bool isDescribed = false;            ///< vendor and version were given
    std::vector<std::string> nodeTypes;  ///< registered and not taken back, in order
    std::vector<std::string> dataTypes;
    // Script procedures that make its part of the user interface and take it away; may be empty.
    std::string createProcedure;
    std::string deleteProcedure;
    void* handle = nullptr;
    kernel::Session* session = nullptr;
};
using ModulePtr = std::shared_ptr<Module>;

/// Loaded modules in order of loading.
const std::vector<ModulePtr>& modules();
/// By name or path; null for one that is not loaded.
ModulePtr findModule(const std::string& nameOrPath);

/// loadModule() of HostApi.h under a name of the caller's; an empty one stands for the file's base name.
std::string loadModuleAs(kernel::Session& session, const std::string& pathOrName, const std::string& name);
/// Unloads a session's modules, last loaded first, whether they are in use or not. Failures are reported.
void unloadAllModules(kernel::Session& session);

/// The folders searched for modules named without a path: MAYA_PLUG_IN_PATH, then the program's own.
std::vector<std::string> moduleFolders();
std::string moduleNameOf(const std::string& pathOrName);
/// Whether nodes of its types are in the scene or its commands in the undo queue.
bool isInUse(const kernel::Session& session, const Module& module);

/// Takes a type of a module away. Nodes become unknown ones that keep their values; plugs lose theirs of that type.
/// False when the module has no such type.
bool removeNodeType(Module& module, const std::string& typeName);
bool removeDataType(Module& module, const std::string& typeName);

/// loadPlugin, unloadPlugin and pluginInfo.
void addModuleCommands(kernel::Session& session);

}  // namespace api
