#include "api/Registration.h"

#include "api/Access.h"
#include "api/ContextCommand.h"
#include "api/DrawOverrides.h"
#include "api/Messages.h"
#include "api/Module.h"
#include "api/ModuleCommand.h"

#include <algorithm>
#include <map>

#include <dlfcn.h>

namespace api {

namespace {

std::string& module()
{
    static std::string name;
    return name;
}

/// How often each module is on the stack.
std::map<std::string, int>& running()
{
    static std::map<std::string, int> depths;
    return depths;
}

struct Registered {
    enum class Kind { Command, ContextCommand } kind;
    std::string module;
    std::string name;
};

std::vector<Registered>& registered()
{
    static std::vector<Registered> list;
    return list;
}

std::vector<std::string> namesOf(Registered::Kind kind, const std::string& module)
{
    std::vector<std::string> names;
    for (const Registered& entry : registered()) {
        if (entry.kind == kind && entry.module == module)
            names.push_back(entry.name);
    }
    return names;
}

bool forget(kernel::Session& session, Registered::Kind kind, const std::string& name)
{
    auto& list = registered();
    const auto found =
        std::find_if(list.begin(), list.end(), [&](const Registered& e) { return e.kind == kind && e.name == name; });
    if (found == list.end())
        return false;
    list.erase(found);
    session.commands.remove(name);
    return true;
}

}  // namespace

const std::string& currentModule()
{
    return module();
}

ModuleScope::ModuleScope(std::string name) : m_before(std::move(module()))
{
    module() = std::move(name);
    ++running()[module()];
}

ModuleScope::~ModuleScope()
{
    const auto own = running().find(module());
    if (--own->second == 0)
        running().erase(own);
    module() = std::move(m_before);
}

bool isModuleRunning(const std::string& name)
{
    return running().count(name) > 0;
}

std::string moduleOfCode(const void* code)
{
    if (!module().empty())
        return module();
    Dl_info info;
    if (!code || dladdr(code, &info) == 0 || !info.dli_fname)
        return {};
    const ModulePtr found = findModule(info.dli_fname);
    return found ? found->name : std::string();
}

bool registerCommand(kernel::Session& session, const std::string& module, const std::string& name, Creator creator,
                     SyntaxCreator syntax)
{
    if (name.empty() || !creator || session.commands.find(name))
        return false;
    CommandRegistration registration;
    registration.module = module;
    registration.name = name;
    registration.creator = creator;
    if (syntax)
        registration.syntax = Access::syntax(MSyntax(syntax()));
    if (!session.commands.add(
            name, [registration] { return std::make_unique<ModuleCommand>(registration); }, module))
        return false;
    registered().push_back({Registered::Kind::Command, module, name});
    return true;
}

bool deregisterCommand(kernel::Session& session, const std::string& name)
{
    return forget(session, Registered::Kind::Command, name);
}

bool registerContextCommand(kernel::Session& session, const std::string& module, const std::string& name,
                            Creator creator)
{
    if (name.empty() || !creator || session.commands.find(name))
        return false;
    if (!session.commands.add(
            name, [module, name, creator] { return std::make_unique<ContextCommand>(module, name, creator); }, module))
        return false;
    registered().push_back({Registered::Kind::ContextCommand, module, name});
    return true;
}

bool deregisterContextCommand(kernel::Session& session, const std::string& name)
{
    if (!forget(session, Registered::Kind::ContextCommand, name))
        return false;
    ToolBox::instance().removeOf(name);
    return true;
}

std::vector<std::string> commandsOf(const std::string& module)
{
    return namesOf(Registered::Kind::Command, module);
}

std::vector<std::string> contextCommandsOf(const std::string& module)
{
    return namesOf(Registered::Kind::ContextCommand, module);
}

std::vector<std::string> dropLeftoversOf(kernel::Session& session, const std::string& module)
{
    std::vector<std::string> dropped;
    for (const std::string& name : contextCommandsOf(module)) {
        deregisterContextCommand(session, name);
        dropped.push_back("the context command " + name);
    }
    for (const std::string& name : commandsOf(module)) {
        deregisterCommand(session, name);
        dropped.push_back("the command " + name);
    }
    for (const std::string& name : dropDrawOverridesOf(module))
        dropped.push_back("the draw override of " + name);
    if (const unsigned callbacks = dropCallbacksOf(session, module))
        dropped.push_back(std::to_string(callbacks) + (callbacks == 1 ? " callback" : " callbacks"));
    return dropped;
}

}  // namespace api
