#pragma once

#include "kernel/Session.h"

#include <functional>
#include <memory>
#include <string>

/// A locator type of a module, version 1.4, with one attribute that holds the module's data.
struct ModuleType {
    std::string name;
    std::uint32_t id;
    std::string plugin;
    std::string attribute;  ///< long name
    std::string shortName;
    std::string dataName;
    std::function<std::shared_ptr<kernel::CustomData>()> makeData;
};

/// Registers the data type, with the identifier 77, and the node type; more: numbers the node has besides.
inline void addModuleType(kernel::Session& session, const ModuleType& module,
                          const std::vector<kernel::AttributePtr>& more = {})
{
    kernel::DataType data;
    data.name = module.dataName;
    data.id = 77;
    data.make = module.makeData;
    data.plugin = module.plugin;
    session.dataTypes.add(data);

    kernel::NodeType type;
    type.name = module.name;
    type.base = session.nodeTypes.find("locator");
    type.role = kernel::NodeRole::Locator;
    type.id = module.id;
    type.plugin = module.plugin;
    type.pluginVersion = "1.4";
    const auto attribute = std::make_shared<kernel::AttributeSpec>();
    attribute->longName = module.attribute;
    attribute->shortName = module.shortName;
    attribute->kind = kernel::ValueKind::Custom;
    attribute->customType = module.dataName;
    type.attributes.push_back(attribute);
    type.attributes.insert(type.attributes.end(), more.begin(), more.end());
    session.nodeTypes.add(type);
}
