#include "mel/builtins/Builtin.h"
#include "mel/builtins/Subjects.h"

#include <algorithm>
#include <functional>
#include <set>

namespace mel {

using kernel::CommandError;
using kernel::Node;
using kernel::NodePtr;
using kernel::NodeType;
using kernel::StringArray;
using kernel::Value;

namespace {

enum class Naming { Bare, Partial, Full };

std::string nameOf(const BuiltinCall& call, const Node& node, Naming naming)
{
    switch (naming) {
    case Naming::Bare: return node.name();
    case Naming::Partial: return call.scene.partialPath(node);
    case Naming::Full: break;
    }
    return call.scene.fullPath(node);
}

std::vector<std::string> textsOf(const BuiltinCall& call, const char* flag)
{
    std::vector<std::string> texts;
    for (unsigned i = 0; i < call.args.useCount(flag); ++i)
        texts.push_back(kernel::toText((*call.args.values(flag, i))[0]));
    return texts;
}

std::vector<std::string> typesOf(const BuiltinCall& call, const char* flag)
{
    std::vector<std::string> types = textsOf(call, flag);
    for (const std::string& type : types) {
        if (!call.session.nodeTypes.find(type))
            throw CommandError("Unknown object type: " + type);
    }
    return types;
}

bool isAnyOf(const Node& node, const std::vector<std::string>& types)
{
    return std::any_of(types.begin(), types.end(), [&](const std::string& type) { return node.type().isA(type); });
}

void addWithDescendants(const NodePtr& node, std::vector<NodePtr>& out)
{
    out.push_back(node);
    for (const NodePtr& child : node->children())
        addWithDescendants(child, out);
}

// --- ls ------------------------------------------------------------------------------------------------------------

/// What is listed before the filters: the selection, the named nodes, or everything.
std::vector<NodePtr> candidates(const BuiltinCall& call, bool onlyCameras)
{
    const bool onlySelected = call.args.has("selection");
    std::vector<NodePtr> nodes;
    if (!call.args.objects.empty()) {
        for (const std::string& name : call.objectNames()) {
            const std::vector<NodePtr> found = call.scene.find(name);
            nodes.insert(nodes.end(), found.begin(), found.end());
        }
        if (onlySelected) {
            const std::set<NodePtr> named(nodes.begin(), nodes.end());
            nodes.clear();
            for (const NodePtr& node : call.scene.selection()) {
                if (named.count(node))
                    nodes.push_back(node);
            }
        }
    } else if (onlySelected) {
        nodes = call.scene.selection();
    } else if (onlyCameras) {
        nodes = call.scene.cameras();
    } else {
        nodes = call.scene.nodes();
    }
    if (!call.args.has("dagObjects"))
        return nodes;
    std::vector<NodePtr> below;
    for (const NodePtr& node : nodes) {
        if (node->type().isDag())
            addWithDescendants(node, below);
    }
    return below;
}

using Filter = std::function<bool(const Node&)>;

/// A node is listed when it passes every filter; those of one row of flags widen one another.
std::vector<Filter> filters(const BuiltinCall& call)
{
    std::vector<Filter> all;
    const kernel::ParsedArgs& args = call.args;
    const bool shapes = args.has("shapes");
    const bool transforms = args.has("transforms");
    const bool cameras = args.has("cameras");
    if (shapes || transforms || cameras) {
        all.push_back([=](const Node& node) {
            return (shapes && node.type().isShape()) || (transforms && node.type().isTransform())
                || (cameras && node.type().isA("camera"));
        });
    }
    if (args.has("type"))
        all.push_back([types = typesOf(call, "type")](const Node& node) { return isAnyOf(node, types); });
    if (args.has("excludeType"))
        all.push_back([types = typesOf(call, "excludeType")](const Node& node) { return !isAnyOf(node, types); });
    if (args.has("exactType")) {
        all.push_back([types = typesOf(call, "exactType")](const Node& node) {
            return std::find(types.begin(), types.end(), node.type().name) != types.end();
        });
    }
    if (args.has("assemblies"))
        all.push_back([](const Node& node) { return node.type().isDag() && !node.parent(); });
    if (args.has("defaultNodes"))
        all.push_back([](const Node& node) { return node.isDefaultNode; });
    if (args.has("undeletable"))
        all.push_back([](const Node& node) { return node.startup || node.isDefaultNode; });
    if (args.has("referencedNodes") || args.has("readOnly"))
        all.push_back([](const Node& node) { return node.referenced; });
    if (args.has("references"))
        all.push_back([](const Node& node) { return node.typeName() == "reference"; });
    if (args.has("visible"))
        all.push_back([](const Node& node) { return node.type().isDag() && node.isVisible(); });
    return all;
}

void cutToLength(std::vector<NodePtr>& nodes, const kernel::ParsedArgs& args)
{
    if (args.has("head"))
        nodes.resize(std::min(nodes.size(), std::size_t(std::max(0, args.integer("head")))));
    if (args.has("tail")) {
        const std::size_t wanted = std::size_t(std::max(0, args.integer("tail")));
        if (wanted < nodes.size())
            nodes.erase(nodes.begin(), nodes.end() - std::ptrdiff_t(wanted));
    }
}

Value runLs(BuiltinCall& call)
{
    if (call.args.has("nodeTypes"))
        return call.session.nodeTypes.names();
    const std::vector<std::string> types = typesOf(call, "type");
    const bool onlyCameras = call.args.has("cameras") || types == std::vector<std::string>{"camera"};
    const std::vector<Filter> tests = filters(call);
    std::set<NodePtr> seen;
    std::vector<NodePtr> nodes;
    for (const NodePtr& node : candidates(call, onlyCameras)) {
        const bool passes = std::all_of(tests.begin(), tests.end(), [&](const Filter& test) { return test(*node); });
        if (passes && seen.insert(node).second)
            nodes.push_back(node);
    }
    cutToLength(nodes, call.args);
    StringArray names;
    for (const NodePtr& node : nodes) {
        names.push_back(call.args.has("uuid")
                            ? node->uid()
                            : nameOf(call, *node, call.args.has("long") ? Naming::Full : Naming::Partial));
        if (call.args.has("showType"))
            names.push_back(node->typeName());
    }
    return names;
}

// --- listRelatives ---------------------------------------------------------------------------------------------------

void addRelatives(const BuiltinCall& call, const NodePtr& node, std::vector<NodePtr>& out)
{
    if (call.args.has("parent") || call.args.has("allParents")) {
        if (node->parent())
            out.push_back(node->parent()->shared_from_this());
        return;
    }
    for (const NodePtr& child : node->children()) {
        if (call.args.has("allDescendents"))
            addRelatives(call, child, out);
        if (!call.args.has("shapes") || child->type().isShape())
            out.push_back(child);
    }
}

Value runListRelatives(BuiltinCall& call)
{
    const Naming naming = call.args.has("fullPath") ? Naming::Full
                        : call.args.has("path")     ? Naming::Partial
                                                    : Naming::Bare;
    const std::vector<std::string> types = typesOf(call, "type");
    std::vector<NodePtr> relatives;
    for (const NodePtr& node : call.nodesOrSelection())
        addRelatives(call, node, relatives);
    StringArray names;
    for (const NodePtr& node : relatives) {
        const bool isHidden = call.args.has("noIntermediate") && node->number("intermediateObject") != 0;
        if (!isHidden && (types.empty() || isAnyOf(*node, types)))
            names.push_back(nameOf(call, *node, naming));
    }
    return names;
}

// --- objExists, nodeType, objectType ---------------------------------------------------------------------------------

Value runObjExists(BuiltinCall& call)
{
    const std::string name = call.objectNames().front();
    if (!call.scene.find(name).empty())
        return 1;
    const std::size_t dot = name.find('.');
    if (dot == std::string::npos)
        return 0;
    try {
        call.scene.findPlug(name);
        return 1;
    } catch (const CommandError&) {
        return 0;
    }
}

std::string apiTypeName(const NodeType& type)
{
    if (!type.plugin.empty()) {
        if (type.role == kernel::NodeRole::Locator)
            return "kPluginLocatorNode";
        return type.isTransform() ? "kPluginTransformNode" : type.isShape() ? "kPluginShape" : "kPluginDependNode";
    }
    std::string name = type.name;
    if (!name.empty() && name[0] >= 'a' && name[0] <= 'z')
        name[0] = char(name[0] - 'a' + 'A');
    return "k" + name;
}

StringArray inheritedTypes(const NodeType& type)
{
    StringArray names;
    for (const NodeType* base = &type; base; base = base->base)
        names.insert(names.begin(), base->name);
    return names;
}

Value runNodeType(BuiltinCall& call)
{
    const std::string name = call.objectNames().front();
    const NodeType* type = nullptr;
    NodePtr node;
    if (call.args.has("isTypeName")) {
        type = call.session.nodeTypes.find(name);
        if (!type)
            throw CommandError("Unknown object type: " + name);
    } else {
        node = call.scene.findOne(name);
        type = &node->type();
    }
    if (call.args.has("inherited"))
        return inheritedTypes(*type);
    if (call.args.has("apiType"))
        return apiTypeName(*type);
    return node ? node->typeName() : type->name;
}

Value runObjectType(BuiltinCall& call)
{
    const NodePtr node = call.scene.findOne(call.objectNames().front());
    if (call.args.has("isType"))
        return int(node->typeName() == call.args.text("isType"));
    if (call.args.has("isAType"))
        return int(node->type().isA(call.args.text("isAType")));
    return node->typeName();
}

}  // namespace

void addListCommands(kernel::Session& session)
{
    addBuiltin(session, "ls",
               makeSyntax({{"selection", "sl"},
                           {"long", "l"},
                           {"type", "typ", "s", true},
                           {"exactType", "et", "s", true},
                           {"excludeType", "ext", "s", true},
                           {"dagObjects", "dag"},
                           {"shapes", "s"},
                           {"transforms", "tr"},
                           {"cameras", "ca"},
                           {"assemblies", "as"},
                           {"showType", "st"},
                           {"uuid", "uid"},
                           {"head", "hd", "i"},
                           {"tail", "tl", "i"},
                           {"objectsOnly", "o"},
                           {"readOnly", "ro"},
                           {"referencedNodes", "rn"},
                           {"references", "rf"},
                           {"defaultNodes", "dn"},
                           {"undeletable", "ud"},
                           {"nodeTypes", "nt"},
                           {"visible", "v"},
                           {"recursive", "r", "b"}}),
               runLs);
    addBuiltin(session, "listRelatives",
               makeSyntax({{"parent", "p"},
                           {"children", "c"},
                           {"shapes", "s"},
                           {"allDescendents", "ad"},
                           {"allParents", "ap"},
                           {"fullPath", "f"},
                           {"path", "pa"},
                           {"type", "typ", "s", true},
                           {"noIntermediate", "ni"}}),
               runListRelatives);
    addBuiltin(session, "objExists", makeSyntax({}, Modes::Create, 1, 1), runObjExists);
    addBuiltin(session, "nodeType",
               makeSyntax({{"apiType", "api"}, {"derived", "d"}, {"inherited", "i"}, {"isTypeName", "itn"}},
                          Modes::Create, 1, 1),
               runNodeType);
    addBuiltin(session, "objectType", makeSyntax({{"isType", "i", "s"}, {"isAType", "isa", "s"}}, Modes::Create, 1, 1),
               runObjectType);
}

}  // namespace mel
