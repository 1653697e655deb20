#include "kernel/NodeType.h"

#include "kernel/HostTypes.h"
#include "kernel/MeshData.h"

#include <algorithm>

namespace kernel {

bool isNumber(ValueKind kind)
{
    switch (kind) {
    case ValueKind::String:
    case ValueKind::Compound:
    case ValueKind::Custom:
    case ValueKind::Message: return false;
    default: return true;
    }
}

bool NodeType::isA(const std::string& typeName) const
{
    for (const NodeType* type = this; type; type = type->base) {
        if (type->name == typeName)
            return true;
    }
    return false;
}

bool NodeType::isShape() const
{
    return role == NodeRole::Shape || role == NodeRole::Camera || role == NodeRole::Locator;
}

AttributePtr NodeType::attribute(const std::string& attributeName) const
{
    for (const NodeType* type = this; type; type = type->base) {
        for (const AttributePtr& attribute : type->attributes) {
            if (attribute->longName == attributeName || attribute->shortName == attributeName)
                return attribute;
        }
    }
    return nullptr;
}

std::vector<AttributePtr> NodeType::allAttributes() const
{
    std::vector<AttributePtr> all;
    if (base)
        all = base->allAttributes();
    all.insert(all.end(), attributes.begin(), attributes.end());
    return all;
}

NodeTypes::NodeTypes()
{
    addHostTypes(*this);
}

bool NodeTypes::add(NodeType type)
{
    if (type.name.empty() || find(type.name) || (type.id != 0 && findId(type.id)))
        return false;
    const std::string name = type.name;
    m_types.emplace(name, std::make_unique<NodeType>(std::move(type)));
    return true;
}

bool NodeTypes::remove(const std::string& name)
{
    const auto it = m_types.find(name);
    if (it == m_types.end())
        return false;
    const NodeType* type = it->second.get();
    const bool isBase =
        std::any_of(m_types.begin(), m_types.end(), [type](const auto& other) { return other.second->base == type; });
    if (isBase)
        return false;
    m_types.erase(it);
    return true;
}

const NodeType* NodeTypes::find(const std::string& name) const
{
    const auto it = m_types.find(name);
    return it == m_types.end() ? nullptr : it->second.get();
}

const NodeType* NodeTypes::findId(std::uint32_t id) const
{
    if (id == 0)
        return nullptr;  // a type without one
    for (const auto& type : m_types) {
        if (type.second->id == id)
            return type.second.get();
    }
    return nullptr;
}

std::vector<std::string> NodeTypes::names() const
{
    std::vector<std::string> names;
    for (const auto& type : m_types)
        names.push_back(type.first);
    return names;
}

DataTypes::DataTypes()
{
    addHostDataTypes(*this);
}

bool DataTypes::add(DataType type)
{
    if (type.name.empty() || !type.make || find(type.name) || findId(type.id))
        return false;
    const std::string name = type.name;
    return m_types.emplace(name, std::move(type)).second;
}

bool DataTypes::remove(std::uint32_t id)
{
    for (auto it = m_types.begin(); it != m_types.end(); ++it) {
        if (it->second.id == id) {
            m_types.erase(it);
            return true;
        }
    }
    return false;
}

const DataType* DataTypes::find(const std::string& name) const
{
    const auto it = m_types.find(name);
    return it == m_types.end() ? nullptr : &it->second;
}

const DataType* DataTypes::findId(std::uint32_t id) const
{
    for (const auto& type : m_types) {
        if (type.second.id == id)
            return &type.second;
    }
    return nullptr;
}

}  // namespace kernel
