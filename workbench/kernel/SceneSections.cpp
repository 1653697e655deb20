#include "kernel/SceneSections.h"

#include "kernel/SceneText.h"
#include "kernel/Session.h"

#include <algorithm>

namespace kernel {

const char* const kSceneConfigurationNode = "sceneConfigurationScriptNode";

const char* const kFileInfo[kFileInfoCount][2] = {
    {"application", "maya"}, {"product", "Maya 2019"},
    {"version", "2019"},     {"cutIdentifier", "000000000000-0000000000"},
    {"osv", "Linux"},
};

namespace {

/// Statements pass this column only with a token that is longer by itself.
constexpr std::size_t kLineLength = 100;

std::string firstWord(const std::string& statement)
{
    const std::size_t start = std::min(statement.find_first_not_of(" \t\r\n"), statement.size());
    return statement.substr(start, statement.find_first_of(" \t\r\n;\"", start) - start);
}

bool isKnownFileInfo(const std::string& statement)
{
    const std::size_t key = std::min(statement.find('"'), statement.size());
    return std::any_of(std::begin(kFileInfo), std::end(kFileInfo), [&](const char* const(&row)[2]) {
        const std::string known = quotedText(row[0]);
        return statement.compare(key, known.size(), known) == 0;
    });
}

bool asksForOneOf(const ModuleUses& modules, const std::string& statement)
{
    return std::any_of(modules.begin(), modules.end(), [&statement](const auto& module) {
        return statement.find(' ' + quotedText(module.first) + ' ') != std::string::npos
            || statement.find(' ' + module.first + ' ') != std::string::npos;
    });
}

bool isConfigurationNode(const Node& node)
{
    return node.name() == kSceneConfigurationNode && node.type().name == "script";
}

}  // namespace

std::string requiresStatement(const std::string& module, const ModuleUse& use)
{
    std::vector<std::string> tokens;
    for (const std::string& type : use.nodeTypes)
        tokens.push_back("-nodeType " + quotedText(type));
    for (const std::string& type : use.dataTypes)
        tokens.push_back("-dataType " + quotedText(type));
    tokens.push_back(quotedText(module) + ' ' + quotedText(use.version));
    std::string statement = "requires";
    std::size_t column = statement.size();
    for (const std::string& token : tokens) {
        const bool wrap = column + token.size() > kLineLength;
        statement += (wrap ? "\n\t\t" : " ") + token;
        column = (wrap ? 2 : column + 1) + token.size();
    }
    return statement + ';';
}

ModuleUses modulesInUse(const Session& session)
{
    ModuleUses modules;
    for (const NodePtr& node : session.scene.nodes()) {
        const NodeType& type = node->type();
        if (node->referenced || type.plugin.empty())
            continue;
        ModuleUse& use = modules[type.plugin];
        use.version = type.pluginVersion;
        use.nodeTypes.insert(type.name);
        for (const AttributePtr& attribute : type.allAttributes()) {
            const DataType* data =
                attribute->kind == ValueKind::Custom ? session.dataTypes.find(attribute->customType) : nullptr;
            if (data && data->plugin == type.plugin && !node->isDefault(*attribute))
                use.dataTypes.insert(data->name);
        }
    }
    return modules;
}

std::vector<std::string> keptStatements(const Scene& scene, const std::string& section, ModuleUses modules)
{
    modules["maya"];
    std::vector<std::string> statements;
    for (const std::string& kept : scene.keptStatements) {
        const std::string statement = trimmedStatement(kept);
        const std::string word = firstWord(statement);
        const bool hasSection = word == "requires" || word == "fileInfo";
        if (statement.empty() || (section.empty() ? hasSection : word != section))
            continue;
        if ((word == "requires" && asksForOneOf(modules, statement))
            || (word == "fileInfo" && isKnownFileInfo(statement)))
            continue;  // the scene says it by itself
        statements.push_back(statement);
    }
    return statements;
}

std::vector<NodePtr> nodesToWrite(const Scene& scene)
{
    std::vector<NodePtr> nodes;
    const auto add = [&nodes](Node& node) {
        if (!node.referenced)
            nodes.push_back(node.shared_from_this());
        return true;
    };
    scene.walkDag(add);
    for (const NodePtr& node : scene.nodes()) {
        if (!node->type().isDag() && !node->isDefaultNode && !isConfigurationNode(*node))
            add(*node);
    }
    return nodes;
}

std::string configurationScript(const Scene& scene)
{
    const Scene::Range playback = scene.playbackRange();
    const Scene::Range animation = scene.animationRange();
    return "playbackOptions -min " + exactNumberText(playback.first) + " -max " + exactNumberText(playback.last)
         + " -ast " + exactNumberText(animation.first) + " -aet " + exactNumberText(animation.last) + ' ';
}

}  // namespace kernel
