#pragma once

#include <cstdint>
#include <functional>
#include <iosfwd>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "kernel/Arguments.h"

namespace kernel {

class Node;

/// What an attribute holds. Numbers are centimetres for Distance, degrees for Angle and, for Time, the scene's current
/// time unit (they are rescaled when that changes).
enum class ValueKind { Bool, Int, Enum, Float, Double, Distance, Angle, Time, String, Compound, Custom, Message };
bool isNumber(ValueKind kind);  ///< its values are numbers: all but String, Compound, Custom and Message

/// One attribute of a node type. Compounds (translate) hold no value; their children do.
struct AttributeSpec {
    std::string longName;
    std::string shortName;
    ValueKind kind = ValueKind::Double;
    double defaultNumber = 0;
    std::string defaultText;
    std::string customType;  ///< Custom: name of the data type
    std::optional<double> minimum;
    std::optional<double> maximum;
    std::vector<std::string> enumNames;  ///< index is the value
    std::vector<std::string> children;   ///< Compound: long names, in order
    std::string parent;                  ///< long name of the compound it belongs to
    bool readable = true;
    bool writable = true;
    bool connectable = true;
    bool storable = true;
    bool hidden = false;
    bool keyable = false;
    bool channelBox = false;
};
using AttributePtr = std::shared_ptr<AttributeSpec>;

/// A value of a type the kernel does not know (a module's data type).
class CustomData {
public:
    virtual ~CustomData() = default;
    virtual std::string typeName() const = 0;
    virtual std::uint32_t typeId() const = 0;
    virtual bool writeText(std::ostream& out) = 0;
    /// args: the whole statement's tokens; `next` is the first of the data on entry and one past the last used on
    /// return.
    virtual bool readText(const Arguments& args, unsigned& next) = 0;
    virtual bool writeBinary(std::ostream& out) = 0;
    /// length: what there is to read, in bytes.
    virtual bool readBinary(std::istream& in, unsigned length) = 0;
    virtual std::shared_ptr<CustomData> copy() const = 0;
};

struct DataType {
    std::string name;
    std::uint32_t id = 0;
    std::function<std::shared_ptr<CustomData>()> make;
    std::string plugin;
};

/// What stands behind a node of a module's type (the module's own object).
class NodeProxy {
public:
    virtual ~NodeProxy() = default;
    virtual void postConstructor() {}
};

/// Where a type stands in the graph. Everything from Dag on has a parent.
enum class NodeRole { Dependency, Dag, Transform, Shape, Camera, Locator };

struct NodeType {
    std::string name;
    const NodeType* base = nullptr;
    NodeRole role = NodeRole::Dependency;
    std::uint32_t id = 0;
    std::vector<AttributePtr> attributes;  ///< its own; a base's come first
    std::string classification;
    std::string plugin;  ///< empty for the host's own
    std::string pluginVersion;
    /// Makes the module's object for a node; the kernel calls postConstructor once the node is complete.
    std::function<std::unique_ptr<NodeProxy>(Node&)> makeProxy;

    bool isA(const std::string& typeName) const;
    bool isDag() const { return role != NodeRole::Dependency; }
    bool isTransform() const { return role == NodeRole::Transform; }
    bool isShape() const;
    /// Long or short name, own or inherited; null when there is none.
    AttributePtr attribute(const std::string& attributeName) const;
    /// Every attribute, base types' first, in declaration order.
    std::vector<AttributePtr> allAttributes() const;
};

class NodeTypes {
public:
    /// Registers the host's own types (dagNode, transform, camera, locator, time, implicitBox, ...).
    NodeTypes();
    /// False when the name or id is taken. The returned pointer of find() stays valid until remove().
    bool add(NodeType type);
    bool remove(const std::string& name);
    const NodeType* find(const std::string& name) const;
    const NodeType* findId(std::uint32_t id) const;
    std::vector<std::string> names() const;

private:
    std::map<std::string, std::unique_ptr<NodeType>> m_types;
};

class DataTypes {
public:
    /// Registers the host's own (mesh).
    DataTypes();
    bool add(DataType type);
    bool remove(std::uint32_t id);
    const DataType* find(const std::string& name) const;
    const DataType* findId(std::uint32_t id) const;

private:
    std::map<std::string, DataType> m_types;
};

}  // namespace kernel
