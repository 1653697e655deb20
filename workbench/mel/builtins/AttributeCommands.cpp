#include "mel/Interpreter.h"
#include "mel/builtins/Builtin.h"
#include "mel/builtins/Placement.h"
#include "mel/builtins/SetAttrRequest.h"
#include "mel/builtins/Subjects.h"

#include <algorithm>
#include <cmath>

namespace mel {

using kernel::AttributePtr;
using kernel::AttributeSpec;
using kernel::CommandError;
using kernel::Node;
using kernel::NodePtr;
using kernel::Plug;
using kernel::Value;
using kernel::ValueKind;

namespace {

/// Node and attribute of "node.attr"; ".attr" belongs to the node a scene is just describing, otherwise to the first
/// selected one.
Plug findPlug(const Interpreter& interpreter, const kernel::Scene& scene, const std::string& name)
{
    if (name.empty() || name[0] != '.') {
        const auto found = scene.findPlug(name);
        return {found.first, found.second};
    }
    NodePtr node = interpreter.sceneNode();
    if (!node && !scene.selection().empty())
        node = scene.selection().front();
    if (!node)
        throw CommandError("No object matches name: " + name);
    // The last part says which attribute; the parts before are the compounds it belongs to.
    const AttributePtr attribute = node->attribute(name.substr(name.rfind('.') + 1));
    if (!attribute)
        throw CommandError("No object matches name: " + scene.partialPath(*node) + name);
    return {node, attribute};
}

// --- setAttr -------------------------------------------------------------------------------------------------------

class SetAttr {
public:
    /// all: every argument of the call; those of module data may be missing from the call itself.
    SetAttr(BuiltinCall& call, const kernel::Arguments& all, const SetAttrRequest& request, const Plug& plug)
        : m_call(call), m_all(all), m_request(request), m_node(plug.node), m_attribute(*plug.attribute), m_plug(plug)
    {}

    void run()
    {
        // Unlocking comes before the value, locking after it.
        if (m_request.locked && !*m_request.locked)
            setFlags(plugFlags());
        if (!m_request.values.empty() || !m_request.type.empty())
            setValue();
        else if (m_request.needsValue())
            failAt(0);
        const kernel::PlugFlags flags = plugFlags();
        if (!(flags == m_node->flags(m_attribute)))
            setFlags(flags);
    }

private:
    [[noreturn]] void fail(const std::string& message) const { throw CommandError(message); }

    /// The value of that place is missing or of the wrong kind.
    [[noreturn]] void failAt(std::size_t place) const
    {
        const std::string word =
            place < m_request.values.size() ? kernel::toText(m_call.all[m_request.values[place]]) : std::string();
        fail("Error reading data element number " + std::to_string(place + 1) + ": " + word);
    }

    std::string nameOf(const AttributeSpec& attribute) const
    {
        return m_call.scene.partialPath(*m_node) + "." + attribute.longName;
    }

    kernel::PlugFlags plugFlags() const
    {
        kernel::PlugFlags flags = m_node->flags(m_attribute);
        flags.locked = m_request.locked.value_or(flags.locked);
        flags.keyable = m_request.keyable.value_or(flags.keyable);
        flags.channelBox = m_request.channelBox.value_or(flags.channelBox);
        return flags;
    }

    void setFlags(kernel::PlugFlags flags) { m_call.apply(kernel::setFlagsEdit(m_node, m_plug.attribute, flags)); }

    void setValue()
    {
        switch (m_attribute.kind) {
        case ValueKind::Custom: return setData();
        case ValueKind::String: return setText();
        case ValueKind::Compound: return setChildren();
        case ValueKind::Message: fail("The attribute '" + nameOf(m_attribute) + "' holds no value.");
        default: break;
        }
        expectCount(1);
        setNumber(m_plug.attribute, 0);
    }

    void expectCount(std::size_t count) const
    {
        if (m_request.values.size() != count)
            failAt(std::min(count, m_request.values.size()));
    }

    void setChildren()
    {
        expectCount(m_attribute.children.size());
        for (std::size_t i = 0; i < m_attribute.children.size(); ++i)
            setNumber(m_node->attribute(m_attribute.children[i]), i);
    }

    void setNumber(const AttributePtr& attribute, std::size_t place)
    {
        const Value& value = m_call.all[m_request.values[place]];
        double number = 0;
        if (attribute->kind == ValueKind::Time) {
            try {
                number = m_call.time(value).as(m_call.scene.timeUnit());
            } catch (const CommandError&) {
                failAt(place);
            }
        } else if (!kernel::toDouble(value, number)) {
            failAt(place);
        }
        if (!std::isfinite(number))
            failAt(place);
        m_call.apply(kernel::setValueEdit(m_node, attribute, clamped(*attribute, number)));
    }

    /// Out of range the edit refuses the number; -clamp brings it inside.
    double clamped(const AttributeSpec& attribute, double number) const
    {
        if (m_request.clamp && attribute.maximum)
            number = std::min(number, *attribute.maximum);
        if (m_request.clamp && attribute.minimum)
            number = std::max(number, *attribute.minimum);
        return number;
    }

    void setText()
    {
        if (m_request.type != "string")
            fail("'" + nameOf(m_attribute)
                 + "' is not a simple numeric attribute.  Its values must be set with a "
                   "-type flag.");
        expectCount(1);
        m_call.apply(kernel::setValueEdit(m_node, m_plug.attribute, kernel::toText(m_call.all[m_request.values[0]])));
    }

    // The module reads its data from the whole statement, starting behind the tokens that lead up to it.
    void setData()
    {
        const kernel::DataType* type = m_call.session.dataTypes.find(m_request.type);
        if (!type || m_request.type != m_attribute.customType)
            fail("'" + nameOf(m_attribute) + "' holds data of type " + m_attribute.customType + ".");
        const std::shared_ptr<kernel::CustomData> data = type->make();
        const unsigned first = unsigned(m_request.values.empty() ? m_call.all.size() : m_request.values.front());
        unsigned next = first;
        if (!data || !data->readText(m_all, next))
            failAt(next >= first ? next - first : 0);
        m_call.apply(kernel::setValueEdit(m_node, m_plug.attribute, data));
    }

    BuiltinCall& m_call;
    const kernel::Arguments& m_all;
    const SetAttrRequest& m_request;
    const NodePtr m_node;
    const AttributeSpec& m_attribute;
    const Plug m_plug;
};

/// Errors of the work itself name the command.
template <typename Work>
auto named(const char* command, Work work)
{
    try {
        return work();
    } catch (const CommandError& error) {
        throw CommandError(std::string(command) + ": " + error.what());
    }
}

Value runSetAttr(Interpreter& interpreter, BuiltinCall& call)
{
    const kernel::ListedArguments given(call.all);
    const kernel::Arguments* const inScene = interpreter.takeSceneArguments();
    const SetAttrRequest request = readSetAttr(call.session, call.all);
    named("setAttr", [&] {
        SetAttr(call, inScene ? *inScene : given, request, findPlug(interpreter, call.scene, request.plug)).run();
    });
    return {};
}

// --- getAttr -------------------------------------------------------------------------------------------------------

std::string typeName(const AttributeSpec& attribute, const Node& node)
{
    switch (attribute.kind) {
    case ValueKind::Bool: return "bool";
    case ValueKind::Int: return "long";
    case ValueKind::Enum: return "enum";
    case ValueKind::Float: return "float";
    case ValueKind::Double: return "double";
    case ValueKind::Distance: return "doubleLinear";
    case ValueKind::Angle: return "doubleAngle";
    case ValueKind::Time: return "time";
    case ValueKind::String: return "string";
    case ValueKind::Custom: return attribute.customType;
    case ValueKind::Message: return "message";
    case ValueKind::Compound: break;
    }
    const AttributePtr child = attribute.children.empty() ? nullptr : node.attribute(attribute.children[0]);
    const char* const element = child && child->kind == ValueKind::Int   ? "long"
                              : child && child->kind == ValueKind::Float ? "float"
                                                                         : "double";
    return element + std::to_string(attribute.children.size());
}

kernel::PlugValue valueOf(const BuiltinCall& call, const Node& node, const AttributeSpec& attribute)
{
    const kernel::ValueList* const time = call.args.values("time");
    return time ? node.valueAt(attribute, call.time(time->front())) : node.value(attribute);
}

double numberOf(const BuiltinCall& call, const Node& node, const AttributeSpec& attribute)
{
    const kernel::PlugValue value = valueOf(call, node, attribute);
    const double* number = std::get_if<double>(&value);
    return number ? *number : 0;
}

Value childValues(const BuiltinCall& call, const Node& node, const AttributeSpec& attribute)
{
    kernel::DoubleArray values;
    for (const std::string& child : attribute.children)
        values.push_back(numberOf(call, node, *node.attribute(child)));
    return values;
}

std::string enumText(const BuiltinCall& call, const Node& node, const AttributeSpec& attribute)
{
    const std::size_t index = std::size_t(std::max(0.0, numberOf(call, node, attribute)));
    return index < attribute.enumNames.size() ? attribute.enumNames[index] : std::string();
}

Value readData(const BuiltinCall& call, const Node& node, const AttributeSpec& attribute)
{
    const kernel::PlugValue value = node.value(attribute);
    const auto* data = std::get_if<std::shared_ptr<kernel::CustomData>>(&value);
    if (data && *data && !call.args.has("silent"))
        throw CommandError("The data is not a numeric or string value, and cannot be displayed.");
    return {};
}

Value readValue(const BuiltinCall& call, const Node& node, const AttributeSpec& attribute)
{
    switch (attribute.kind) {
    case ValueKind::Enum:
        if (call.args.has("asString"))
            return enumText(call, node, attribute);
        return int(numberOf(call, node, attribute));
    case ValueKind::Bool:
    case ValueKind::Int: return int(numberOf(call, node, attribute));
    case ValueKind::String: return std::get<std::string>(node.value(attribute));
    case ValueKind::Compound: return childValues(call, node, attribute);
    case ValueKind::Custom: return readData(call, node, attribute);
    case ValueKind::Message: return readData(call, node, attribute);
    default: return numberOf(call, node, attribute);
    }
}

Value runGetAttr(const Interpreter& interpreter, BuiltinCall& call)
{
    const Plug plug = named("getAttr", [&] { return findPlug(interpreter, call.scene, call.objectNames().front()); });
    const AttributeSpec& attribute = *plug.attribute;
    const kernel::PlugFlags flags = plug.node->flags(attribute);
    if (call.args.has("type"))
        return typeName(attribute, *plug.node);
    if (call.args.has("lock"))
        return int(isLocked(*plug.node, attribute));
    if (call.args.has("keyable"))
        return int(flags.keyable);
    if (call.args.has("channelBox"))
        return int(flags.channelBox);
    if (call.args.has("settable"))
        return int(attribute.writable && !isLocked(*plug.node, attribute));
    if (call.args.has("size"))
        return 1;
    return readValue(call, *plug.node, attribute);
}

}  // namespace

void addAttributeCommands(Interpreter& interpreter)
{
    addRawBuiltin(interpreter.session(), "setAttr",
                  [&interpreter](BuiltinCall& call) { return runSetAttr(interpreter, call); });
    addBuiltin(interpreter.session(), "getAttr",
               makeSyntax({{"type", "typ"},
                           {"lock", "l"},
                           {"keyable", "k"},
                           {"channelBox", "cb"},
                           {"settable", "se"},
                           {"size", "s"},
                           {"time", "t", "t"},
                           {"asString", "as"},
                           {"silent", "sl"}},
                          Modes::Create, 1, 1),
               [&interpreter](BuiltinCall& call) { return runGetAttr(interpreter, call); });
}

}  // namespace mel
