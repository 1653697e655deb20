#pragma once

#include "kernel/Scene.h"

#include <QString>

#include <vector>

namespace app {

/// An attribute of a node that may be gone by the time it is asked for.
struct Plug {
    std::weak_ptr<kernel::Node> node;
    kernel::AttributePtr attribute;
};

/// "ball.translateX", quoted as a string of the script language.
std::string plugText(const kernel::Scene& scene, const kernel::Node& node, const kernel::AttributeSpec& attribute);

/// The statement that gives an attribute what the user typed, which need not be anything it can hold: then the
/// statement fails and says so.
std::string setAttrText(const kernel::Scene& scene, const kernel::Node& node, const kernel::AttributeSpec& attribute,
                        const QString& typed);

/// The nodes a change of one node's attribute is meant for when several are selected: it and, of every other selected
/// node, that node or its shape, whichever is of the same sort and has the attribute. The first is the node itself.
std::vector<kernel::NodePtr> nodesMeant(const kernel::Scene& scene, const kernel::NodePtr& shown,
                                        const kernel::AttributeSpec& attribute);

/// A transform and the shapes below it, or the node alone.
std::vector<kernel::NodePtr> withShapes(const kernel::NodePtr& node);

}  // namespace app
