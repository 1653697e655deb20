#include "app/panels/AttributeScript.h"

#include "mel/builtins/Quoting.h"

#include <algorithm>
#include <unordered_set>

namespace app {

std::string plugText(const kernel::Scene& scene, const kernel::Node& node, const kernel::AttributeSpec& attribute)
{
    return mel::quoted(scene.partialPath(node) + '.' + attribute.longName);
}

std::string setAttrText(const kernel::Scene& scene, const kernel::Node& node, const kernel::AttributeSpec& attribute,
                        const QString& typed)
{
    const std::string plug = plugText(scene, node, attribute);
    const std::string text = typed.toStdString();
    if (attribute.kind == kernel::ValueKind::String) {
        return "setAttr -type \"string\" " + plug + ' ' + mel::quoted(text) + "; ";
    }
    double number = 0;
    const bool isNumber = kernel::parseDouble(text, number);
    return "setAttr " + plug + ' ' + (isNumber ? kernel::exactNumberText(number) : mel::quoted(text)) + "; ";
}

std::vector<kernel::NodePtr> nodesMeant(const kernel::Scene& scene, const kernel::NodePtr& shown,
                                        const kernel::AttributeSpec& attribute)
{
    std::vector<kernel::NodePtr> meant{shown};
    std::unordered_set<const kernel::Node*> added{shown.get()};
    for (const kernel::NodePtr& selected : scene.selection()) {
        if (selected.get() == shown->parent()) {
            continue;  // its other shapes are not meant
        }
        for (const kernel::NodePtr& node : withShapes(selected)) {
            const kernel::AttributePtr same = node->attribute(attribute.longName);
            if (same && same->kind == attribute.kind && node->type().role == shown->type().role
                && added.insert(node.get()).second) {
                meant.push_back(node);
            }
        }
    }
    return meant;
}

std::vector<kernel::NodePtr> withShapes(const kernel::NodePtr& node)
{
    std::vector<kernel::NodePtr> nodes{node};
    std::copy_if(node->children().begin(), node->children().end(), std::back_inserter(nodes),
                 [](const kernel::NodePtr& child) { return child->type().isShape(); });
    return nodes;
}

}  // namespace app
