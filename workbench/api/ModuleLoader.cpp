#include "api/Module.h"

#include "api/Handles.h"
#include "api/HostApi.h"
#include "api/ModuleData.h"
#include "api/Registration.h"

#include <QCoreApplication>
#include <QEvent>

#include <algorithm>
#include <cstdlib>
#include <filesystem>

#include <dlfcn.h>

namespace api {
namespace {

namespace fs = std::filesystem;

std::vector<ModulePtr>& loaded()
{
    static std::vector<ModulePtr> list;
    return list;
}

using EntryPoint = MStatus (*)(MObject);

#define ENTRY_TEXT_OF(name) #name
#define ENTRY_TEXT(name) ENTRY_TEXT_OF(name)

/// The mangled name of an entry point, which carries the API's versioned namespace.
std::string symbolOf(const std::string& function)
{
    const std::string space = ENTRY_TEXT(OPENMAYA_MAJOR_NAMESPACE);
    return "_Z" + std::to_string(function.size()) + function + "N8Autodesk4Maya" + std::to_string(space.size()) + space
         + "7MObjectE";
}

EntryPoint entryPoint(const Module& module, const std::string& function)
{
    return reinterpret_cast<EntryPoint>(dlsym(module.handle, symbolOf(function).c_str()));
}

/// Runs one entry point; an exception counts as a failure.
bool callEntryPoint(const ModulePtr& module, const std::string& function)
{
    const ModuleScope scope(module->name);
    try {
        return entryPoint(*module, function)(toObject(module));
    } catch (const std::exception& error) {
        module->session->output.error(error.what());
        return false;
    }
}

bool isFile(const fs::path& path)
{
    std::error_code ignored;
    return fs::is_regular_file(path, ignored);
}

/// The module's file, empty when there is none.
std::string findFile(const std::string& pathOrName)
{
    std::vector<fs::path> places;
    if (pathOrName.find('/') != std::string::npos) {
        places.push_back(pathOrName);
    } else {
        for (const std::string& folder : moduleFolders())
            places.push_back(fs::path(folder) / pathOrName);
    }
    for (const fs::path& place : places) {
        for (const std::string suffix : {"", ".so"}) {
            const fs::path file = place.string() + suffix;
            if (isFile(file))
                return fs::absolute(file).lexically_normal().string();
        }
    }
    return {};
}

void openLibrary(Module& module)
{
    module.handle = dlopen(module.path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!module.handle) {
        const char* reason = dlerror();
        throw kernel::CommandError("Unable to dynamically load : " + module.path + "\n" + (reason ? reason : ""));
    }
    if (!entryPoint(module, "initializePlugin") || !entryPoint(module, "uninitializePlugin")) {
        dlclose(module.handle);
        throw kernel::CommandError("Unable to dynamically load : " + module.path
                                   + "\nIt has no initializePlugin and uninitializePlugin of API version "
                                   + std::to_string(MAYA_API_VERSION) + ".");
    }
    if (const auto* version = static_cast<const char*>(dlsym(module.handle, "MApiVersion")))
        module.apiVersion = version;
}

/// Takes away what an entry point should have; gives a text for each.
std::vector<std::string> dropLeftovers(Module& module)
{
    std::vector<std::string> dropped = dropLeftoversOf(*module.session, module.name);
    while (!module.nodeTypes.empty()) {
        dropped.push_back("the node type " + module.nodeTypes.back());
        removeNodeType(module, module.nodeTypes.back());
    }
    while (!module.dataTypes.empty()) {
        dropped.push_back("the data type " + module.dataTypes.back());
        removeDataType(module, module.dataTypes.back());
    }
    return dropped;
}

void closeLibrary(Module& module)
{
    // Objects of the module's own classes that are to be deleted later must go while their code is there.
    if (QCoreApplication::instance())
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    dlclose(module.handle);
    module.handle = nullptr;
}

void runProcedure(Module& module, const std::string& procedure)
{
    if (!procedure.empty() && module.session->hasScript())
        module.session->script().execute(procedure + "()", false, false);
}

void dropUndoOf(const Module& module)
{
    if (module.session->undo.holdsCommandsOf(module.name))
        module.session->undo.flush();
}

/// Texts that wait for idle time and begin with a command that is gone could only fail.
void dropIdleTextsOf(kernel::Session& session, const std::vector<std::string>& commands)
{
    session.idle.drop([&](const std::string& text) {
        const std::size_t begin = std::min(text.find_first_not_of(" \t\n"), text.size());
        const std::string command = text.substr(begin, text.find_first_of(" \t\n;(", begin) - begin);
        return std::find(commands.begin(), commands.end(), command) != commands.end();
    });
}

std::string quotedName(const std::string& name)
{
    return "Plug-in, \"" + name + "\",";
}

void forget(const ModulePtr& module)
{
    loaded().erase(std::remove(loaded().begin(), loaded().end(), module), loaded().end());
}

/// Takes away what a module left behind when its code was asked to leave, or refused to stay, and the code itself.
/// Gives what that was. commands: those it had when it was asked.
std::vector<std::string> discard(const ModulePtr& module, const std::vector<std::string>& commands)
{
    const std::vector<std::string> leftovers = dropLeftovers(*module);
    dropIdleTextsOf(*module->session, commands);
    dropUndoOf(*module);  // what its tools and entry point did while they were leaving
    closeLibrary(*module);
    forget(module);
    return leftovers;
}

void unload(const ModulePtr& module, bool force)
{
    auto& session = *module->session;
    if (!force && isInUse(session, *module))
        throw kernel::CommandError(quotedName(module->name) + " cannot be unloaded because it is still in use");
    dropUndoOf(*module);
    runProcedure(*module, module->deleteProcedure);
    const std::vector<std::string> commands = commandsOf(module->name);
    const bool done = callEntryPoint(module, "uninitializePlugin");
    if (!done && !force)
        throw kernel::CommandError("uninitializePlugin function failed (" + module->name + ")");
    if (!done)
        session.output.warning("uninitializePlugin function failed (" + module->name + ")");
    for (const std::string& leftover : discard(module, commands))
        session.output.warning(quotedName(module->name) + " left behind " + leftover + ".");
}

}  // namespace

const std::vector<ModulePtr>& modules()
{
    return loaded();
}

ModulePtr findModule(const std::string& nameOrPath)
{
    for (const ModulePtr& module : loaded()) {
        if (module->name == nameOrPath || module->path == nameOrPath)
            return module;
    }
    const std::string name = moduleNameOf(nameOrPath);
    return name == nameOrPath ? nullptr : findModule(name);
}

std::vector<std::string> moduleFolders()
{
    std::vector<std::string> folders;
    const char* const variable = std::getenv("MAYA_PLUG_IN_PATH");
    const std::string list = variable ? variable : "";
    for (std::size_t start = 0; start < list.size();) {
        const auto end = std::min(list.find(':', start), list.size());
        if (end > start)
            folders.push_back(list.substr(start, end - start));
        start = end + 1;
    }
    std::error_code ignored;
    const fs::path program = fs::read_symlink("/proc/self/exe", ignored);
    if (!program.empty())
        folders.push_back((program.parent_path() / "plug-ins").string());
    return folders;
}

std::string moduleNameOf(const std::string& pathOrName)
{
    const fs::path file = fs::path(pathOrName).filename();
    return file.extension() == ".so" ? file.stem().string() : file.string();
}

bool isInUse(const kernel::Session& session, const Module& module)
{
    const auto isOurs = [&module](const kernel::NodePtr& node) { return node->type().plugin == module.name; };
    const auto& nodes = session.scene.nodes();
    return std::any_of(nodes.begin(), nodes.end(), isOurs) || session.undo.holdsCommandsOf(module.name);
}

bool removeNodeType(Module& module, const std::string& typeName)
{
    auto& own = module.nodeTypes;
    const auto found = std::find(own.begin(), own.end(), typeName);
    const auto* type = module.session->nodeTypes.find(typeName);
    if (found == own.end() || !type)
        return false;
    const std::string name = typeName;  // the caller's may be the one erased
    own.erase(found);
    module.session->scene.orphanNodesOf(*type);
    return module.session->nodeTypes.remove(name);
}

bool removeDataType(Module& module, const std::string& typeName)
{
    auto& own = module.dataTypes;
    const auto found = std::find(own.begin(), own.end(), typeName);
    const auto* type = module.session->dataTypes.find(typeName);
    if (found == own.end() || !type)
        return false;
    const std::string name = typeName;  // the caller's may be the one erased
    const auto id = type->id;
    own.erase(found);
    ModuleData::abandon(name);
    ModuleData::setCreator(name, nullptr);
    return module.session->dataTypes.remove(id);
}

std::string loadModuleAs(kernel::Session& session, const std::string& pathOrName, const std::string& name)
{
    const auto module = std::make_shared<Module>();
    module->session = &session;
    module->name = name.empty() ? moduleNameOf(pathOrName) : name;
    if (findModule(module->name)) {
        session.output.warning(quotedName(module->name) + " is already loaded.");
        return module->name;
    }
    module->path = findFile(pathOrName);
    if (module->path.empty())
        throw kernel::CommandError(quotedName(pathOrName) + " was not found on MAYA_PLUG_IN_PATH.");
    openLibrary(*module);
    loaded().push_back(module);
    if (!callEntryPoint(module, "initializePlugin")) {
        dropUndoOf(*module);
        discard(module, commandsOf(module->name));
        throw kernel::CommandError("initializePlugin function failed (" + module->name + ")");
    }
    runProcedure(*module, module->createProcedure);
    return module->name;
}

std::string loadModule(kernel::Session& session, const std::string& pathOrName)
{
    return loadModuleAs(session, pathOrName, {});
}

void unloadModule(kernel::Session& session, const std::string& name, bool force)
{
    const auto module = findModule(name);
    if (!module || module->session != &session)
        throw kernel::CommandError(quotedName(name) + " is not loaded.");
    if (isModuleRunning(module->name))
        throw kernel::CommandError(quotedName(module->name) + " cannot be unloaded while its code is running");
    unload(module, force);
}

void unloadAllModules(kernel::Session& session)
{
    const std::vector<ModulePtr> list = loaded();
    for (auto module = list.rbegin(); module != list.rend(); ++module) {
        if ((*module)->session == &session)
            unload(*module, true);
    }
}

bool isModuleLoaded(const std::string& name)
{
    return findModule(name) != nullptr;
}

}  // namespace api
