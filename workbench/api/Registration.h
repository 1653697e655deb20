#pragma once

#include "kernel/Session.h"

#include <maya/MSyntax.h>

#include <string>
#include <vector>

namespace api {

/// Name of the module whose code runs by the loader's doing (its entry points, its commands, its tools); empty
/// otherwise. What a module leaves behind in host lists is found by this name.
const std::string& currentModule();

/// Makes a module the current one for its lifetime.
class ModuleScope {
public:
    explicit ModuleScope(std::string name);
    ~ModuleScope();
    ModuleScope(const ModuleScope&) = delete;
    ModuleScope& operator=(const ModuleScope&) = delete;

private:
    std::string m_before;
};

/// Whether code of that module is on the stack, the current one or one that called back into the host.
bool isModuleRunning(const std::string& name);

/// The current module, or the loaded one that holds `code` (a callback's address); empty for the host's own.
std::string moduleOfCode(const void* code);

using Creator = void* (*)();
using SyntaxCreator = MSyntax (*)();

/// False when the name is taken. creator gives an MPxCommand; syntax may be null (arguments then arrive raw) and is
/// called once, here.
bool registerCommand(kernel::Session& session, const std::string& module, const std::string& name, Creator creator,
                     SyntaxCreator syntax);
/// False when no module registered that name.
bool deregisterCommand(kernel::Session& session, const std::string& name);

/// creator gives an MPxContextCommand. Deregistering drops the contexts it made; a current one is left first.
bool registerContextCommand(kernel::Session& session, const std::string& module, const std::string& name,
                            Creator creator);
bool deregisterContextCommand(kernel::Session& session, const std::string& name);

/// Names a module has registered and not taken back, in order of registration.
std::vector<std::string> commandsOf(const std::string& module);
std::vector<std::string> contextCommandsOf(const std::string& module);
std::vector<std::string> drawOverridesOf(const std::string& module);

/// Takes away whatever a module about to be unloaded left registered: commands, context commands, draw override
/// creators, event and condition callbacks. Gives one line of text for each, for the loader to report.
std::vector<std::string> dropLeftoversOf(kernel::Session& session, const std::string& module);

}  // namespace api
