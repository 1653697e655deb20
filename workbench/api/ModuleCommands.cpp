#include "api/Module.h"

#include "api/HostApi.h"
#include "api/Registration.h"
#include "kernel/Syntax.h"

#include <filesystem>

namespace api {
namespace {

using kernel::CommandError;
using kernel::ParsedArgs;
using kernel::StringArray;
using kernel::Syntax;
using kernel::Value;
using kernel::ValueList;

/// Paths of every module in the folders searched.
StringArray allModuleFiles()
{
    StringArray files;
    for (const std::string& folder : moduleFolders()) {
        std::error_code none;  // folders of the search path need not exist
        for (const auto& entry : std::filesystem::directory_iterator(folder, none)) {
            if (entry.path().extension() == ".so")
                files.push_back(entry.path().string());
        }
    }
    return files;
}

Value loadPlugin(kernel::Session& session, const ValueList& args)
{
    Syntax syntax;
    syntax.addFlag("qt", "quiet");
    syntax.addFlag("a", "allPlugins");
    syntax.addFlag("n", "name", {kernel::ArgType::String});
    syntax.setObjects(Syntax::Objects::Strings);
    const ParsedArgs parsed = kernel::parsedOrThrow(syntax, args, "loadPlugin");
    StringArray wanted;
    if (parsed.has("allPlugins"))
        wanted = allModuleFiles();
    for (const Value& object : parsed.objects)
        wanted.push_back(kernel::toText(object));
    if (wanted.empty() || (parsed.has("name") && wanted.size() != 1))
        throw CommandError("loadPlugin: Wrong number of plug-ins to load.");
    StringArray names;
    for (const std::string& one : wanted) {
        const auto known = parsed.has("quiet") ? findModule(one) : nullptr;
        names.push_back(known ? known->name : loadModuleAs(session, one, parsed.text("name")));
    }
    return names;
}

Value unloadPlugin(kernel::Session& session, const ValueList& args)
{
    Syntax syntax;
    syntax.addFlag("f", "force");
    syntax.setObjects(Syntax::Objects::Strings, 1);
    const ParsedArgs parsed = kernel::parsedOrThrow(syntax, args, "unloadPlugin");
    StringArray names;
    for (const Value& object : parsed.objects) {
        const std::string wanted = kernel::toText(object);
        const auto module = findModule(wanted);
        const std::string name = module ? module->name : wanted;
        unloadModule(session, name, parsed.has("force"));
        names.push_back(name);
    }
    return names;
}

struct Question {
    const char* shortName;
    const char* longName;
    Value (*answer)(const Module& module);
};

/// What pluginInfo tells of one module.
const Question kQuestions[] = {
    {"v", "version", [](const Module& m) { return Value(m.version); }},
    {"vd", "vendor", [](const Module& m) { return Value(m.vendor); }},
    {"av", "apiVersion", [](const Module& m) { return Value(m.apiVersion); }},
    {"p", "path", [](const Module& m) { return Value(m.path); }},
    {"n", "name", [](const Module& m) { return Value(m.name); }},
    {"uo", "unloadOk", [](const Module& m) { return Value(isInUse(*m.session, m) ? 0 : 1); }},
    {"c", "command", [](const Module& m) { return Value(commandsOf(m.name)); }},
    {"t", "tool", [](const Module& m) { return Value(contextCommandsOf(m.name)); }},
    {"dn", "dependNode", [](const Module& m) { return Value(m.nodeTypes); }},
    {"d", "data", [](const Module& m) { return Value(m.dataTypes); }},
};

Syntax pluginInfoSyntax()
{
    Syntax syntax;
    syntax.enableQuery();
    syntax.addFlag("l", "loaded");
    syntax.addFlag("r", "registered");
    syntax.addFlag("ls", "listPlugins");
    syntax.addFlag("pu", "pluginsInUse");
    for (const Question& question : kQuestions)
        syntax.addFlag(question.shortName, question.longName);
    syntax.setObjects(Syntax::Objects::Strings, 0, 1);
    return syntax;
}

StringArray moduleNames(bool inUseOnly)
{
    StringArray names;
    for (const ModulePtr& module : modules()) {
        if (!inUseOnly || isInUse(*module->session, *module))
            names.push_back(module->name);
    }
    return names;
}

Value pluginInfo(const ValueList& args)
{
    const ParsedArgs parsed = kernel::parsedOrThrow(pluginInfoSyntax(), args, "pluginInfo");
    if (parsed.has("listPlugins"))
        return moduleNames(false);
    if (parsed.has("pluginsInUse"))
        return moduleNames(true);
    if (parsed.objects.empty())
        throw CommandError("pluginInfo: No plug-in was specified");
    const std::string name = kernel::toText(parsed.objects[0]);
    const auto module = findModule(name);
    if (parsed.has("loaded") || parsed.has("registered"))
        return module ? 1 : 0;
    if (!module)
        throw CommandError("Plug-in, \"" + name + "\", is not loaded.");
    for (const Question& question : kQuestions) {
        if (parsed.has(question.longName))
            return question.answer(*module);
    }
    throw CommandError("pluginInfo: No flag was specified");
}

}  // namespace

void addModuleCommands(kernel::Session& session)
{
    session.commands.add("loadPlugin", [&session](const ValueList& args) { return loadPlugin(session, args); });
    session.commands.add("unloadPlugin", [&session](const ValueList& args) { return unloadPlugin(session, args); });
    session.commands.add("pluginInfo", pluginInfo);
}

}  // namespace api
