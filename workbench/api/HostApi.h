#pragma once

#include "kernel/Session.h"

#include <string>

namespace api {

/// Registers the commands that stand on the host API: loadPlugin, unloadPlugin, pluginInfo, setToolTo, currentCtx,
/// contextInfo, ctxAbort, ctxCompletion.
void installHostApi(kernel::Session& session);
/// Leaves the current tool, unloads every module (last loaded first), forgets tools, overrides and textures.
void shutDownHostApi(kernel::Session& session);

/// Loads a module by path, or by name through MAYA_PLUG_IN_PATH and the program's plug-ins folder. Gives its internal
/// name (the file's base name); loading one twice is a warning. Throws kernel::CommandError with the host's wording.
std::string loadModule(kernel::Session& session, const std::string& pathOrName);
/// Throws kernel::CommandError when it is unknown, or in use and not forced.
void unloadModule(kernel::Session& session, const std::string& name, bool force);
bool isModuleLoaded(const std::string& name);

}  // namespace api
