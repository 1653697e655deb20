#include "mel/builtins/Placement.h"

#include <algorithm>

namespace mel {

using kernel::NodePtr;

namespace {

void setTriple(BuiltinCall& call, const NodePtr& node, const char* name, const double (&values)[3])
{
    const char* const axes[] = {"X", "Y", "Z"};
    for (int i = 0; i < 3; ++i)
        setNumber(call, node, std::string(name) + axes[i], values[i], "parent");
}

}  // namespace

bool isLocked(const kernel::Node& node, const kernel::AttributeSpec& attribute)
{
    return kernel::isLockedPlug(node, attribute)
        || std::any_of(attribute.children.begin(), attribute.children.end(),
                       [&node](const std::string& child) { return node.flags(*node.attribute(child)).locked; });
}

void setNumber(BuiltinCall& call, const NodePtr& node, const std::string& attribute, double value, const char* command)
{
    if (node->number(attribute) == value)
        return;
    try {
        call.apply(kernel::setValueEdit(node, node->attribute(attribute), value));
    } catch (const kernel::CommandError& error) {
        throw kernel::CommandError(std::string(command) + ": " + error.what());
    }
}

void place(BuiltinCall& call, const NodePtr& node, const kernel::Matrix4& local)
{
    const kernel::Placement parts = kernel::placementOf(local);
    setTriple(call, node, "translate", parts.translate);
    setTriple(call, node, "rotate", parts.rotate);
    setTriple(call, node, "scale", parts.scale);
}

}  // namespace mel
