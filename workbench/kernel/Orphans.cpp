#include "kernel/CurveText.h"
#include "kernel/Scene.h"
#include "kernel/SceneSections.h"
#include "kernel/SceneText.h"
#include "kernel/Session.h"

#include <algorithm>
#include <sstream>

namespace kernel {

namespace {

const char* standInType(const NodeType& type)
{
    if (type.isTransform())
        return "unknownTransform";
    return type.isDag() ? "unknownDag" : "unknown";
}

}  // namespace

void Scene::orphanNodesOf(const NodeType& type)
{
    std::vector<NodePtr> nodes;  // destroying a module's object may make or drop others
    for (const std::weak_ptr<Node>& weak : m_all) {
        const NodePtr node = weak.lock();
        if (node && node->type().isA(type.name))
            nodes.push_back(node);
    }
    ModuleUse use;
    bool inScene = false;
    for (const NodePtr& node : nodes) {
        inScene = inScene || node->isInScene();
        use.nodeTypes.insert(node->type().name);
        for (const AttributePtr& attribute : node->type().allAttributes()) {
            if (attribute->kind == ValueKind::Custom && !node->isDefault(*attribute))
                use.dataTypes.insert(attribute->customType);
        }
        orphan(*node);
    }
    if (!inScene || type.plugin.empty())
        return;
    use.version = type.pluginVersion;
    const std::string statement = requiresStatement(type.plugin, use);
    if (std::find(keptStatements.begin(), keptStatements.end(), statement) == keptStatements.end())
        keptStatements.push_back(statement);
    requestRedraw();
}

void Scene::orphan(Node& node)
{
    const NodeType& standIn = *m_session.nodeTypes.find(standInType(*node.m_type));
    const std::vector<AttributePtr> attributes = node.m_type->allAttributes();
    for (const AttributePtr& attribute : attributes) {
        if (standIn.attribute(attribute->longName))
            continue;
        if (attribute->parent.empty())
            keepAsStatements(node, *attribute);
    }
    // The curves stay, and drive it again in a scene that is opened with the module.
    for (const AttributePtr& attribute : node.animatedAttributes()) {
        if (standIn.attribute(attribute->longName))
            continue;
        if (node.isInScene())
            keptStatements.push_back(connectionStatement(*this, {node.shared_from_this(), attribute}));
        node.setCurve(attribute, nullptr);
    }
    for (const AttributePtr& attribute : attributes) {
        if (!standIn.attribute(attribute->longName)) {
            node.m_state.values.erase(attribute->longName);
            node.m_state.flags.erase(attribute->longName);
        }
    }
    node.unknownType = node.m_type->name;
    node.m_type = &standIn;
    node.m_proxy.reset();
}

void Scene::keepAsStatements(Node& node, const AttributeSpec& attribute)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    try {
        writeAttribute(text, node, attribute);
    } catch (const CommandError& error) {
        m_session.output.warning(error.what());
        return;
    }
    std::string statements = text.str();
    if (!statements.empty())
        node.unknownStatements.push_back(std::move(statements));
}

}  // namespace kernel
