#include "kernel/Keying.h"
#include "mel/builtins/Builtin.h"
#include "mel/builtins/Subjects.h"

#include <algorithm>

namespace mel {

using kernel::AttributePtr;
using kernel::CommandError;
using kernel::NodePtr;
using kernel::Plug;
using kernel::Value;

namespace {

Plug plugOf(const BuiltinCall& call, const std::string& name)
{
    const auto found = call.scene.findPlug(name);
    return {found.first, found.second};
}

std::string nameOf(const BuiltinCall& call, const Plug& plug)
{
    return call.scene.partialPath(*plug.node) + '.' + plug.attribute->longName;
}

Plug outputOf(const NodePtr& curve)
{
    return {curve, curve->attribute("output")};
}

struct Ends {
    Plug source;
    Plug destination;
};

Ends endsOf(const BuiltinCall& call)
{
    const std::vector<std::string> names = call.objectNames();
    return {plugOf(call, names[0]), plugOf(call, names[1])};
}

bool areConnected(const Ends& ends)
{
    return kernel::isCurveOutput(ends.source)
        && ends.destination.node->curveOf(*ends.destination.attribute) == ends.source.node;
}

Value runConnectAttr(BuiltinCall& call)
{
    const Ends ends = endsOf(call);
    const std::string destination = nameOf(call, ends.destination);
    if (!kernel::isCurveOutput(ends.source))
        throw CommandError("'" + nameOf(call, ends.source) + "' is not the output of an animation curve.");
    if (areConnected(ends))
        throw CommandError("'" + nameOf(call, ends.source) + "' is already connected to '" + destination + "'.");
    const NodePtr before = ends.destination.node->curveOf(*ends.destination.attribute);
    if (before && !call.args.has("force"))
        throw CommandError("'" + destination + "' already has an incoming connection from '"
                           + nameOf(call, outputOf(before)) + "'.");
    kernel::connect(call.session, ends.destination, ends.source.node, call.edits());
    return "Connected " + nameOf(call, ends.source) + " to " + destination + '.';
}

Value runDisconnectAttr(BuiltinCall& call)
{
    const Ends ends = endsOf(call);
    const std::string source = nameOf(call, ends.source);
    const std::string destination = nameOf(call, ends.destination);
    if (!areConnected(ends))
        throw CommandError("There is no connection from '" + source + "' to '" + destination + "' to disconnect.");
    kernel::connect(call.session, ends.destination, nullptr, call.edits());
    return "Disconnected " + source + " from " + destination + '.';
}

Value runIsConnected(BuiltinCall& call)
{
    return int(areConnected(endsOf(call)));
}

/// The attribute, or the children of a compound; of a whole node (no attribute) all that is animated.
std::vector<AttributePtr> destinationsIn(const Plug& plug)
{
    std::vector<AttributePtr> animated = plug.node->animatedAttributes();
    if (!plug.attribute)
        return animated;
    const auto isElsewhere = [&plug](const AttributePtr& one) {
        return one->longName != plug.attribute->longName && one->parent != plug.attribute->longName;
    };
    animated.erase(std::remove_if(animated.begin(), animated.end(), isElsewhere), animated.end());
    return animated;
}

/// What is connected with a plug, each with the end of the plug's own node before it.
std::vector<Ends> connectionsOf(const BuiltinCall& call, const Plug& plug)
{
    std::vector<Ends> found;
    if (call.args.integer("source", 0, 1)) {
        for (const AttributePtr& attribute : destinationsIn(plug))
            found.push_back({{plug.node, attribute}, outputOf(plug.node->curveOf(*attribute))});
    }
    const bool isSource = !plug.attribute || kernel::isCurveOutput(plug);
    if (isSource && call.args.integer("destination", 0, 1)) {
        for (const Plug& driven : plug.node->drivenPlugs())
            found.push_back({outputOf(plug.node), driven});
    }
    return found;
}

Value runListConnections(BuiltinCall& call)
{
    std::vector<Plug> subjects;
    for (const std::string& name : call.objectNames()) {
        if (name.find('.') != std::string::npos)
            subjects.push_back(plugOf(call, name));
        else
            subjects.push_back({call.scene.findOne(name), nullptr});
    }
    if (call.args.objects.empty()) {
        for (const NodePtr& node : call.scene.selection())
            subjects.push_back({node, nullptr});
    }
    kernel::StringArray names;
    const std::string type = call.args.text("type");
    for (const Plug& subject : subjects) {
        for (const Ends& ends : connectionsOf(call, subject)) {
            const Plug& other = ends.destination;
            if (!type.empty() && !other.node->type().isA(type))
                continue;
            if (call.args.integer("connections"))
                names.push_back(nameOf(call, ends.source));
            names.push_back(call.args.integer("plugs") ? nameOf(call, other) : call.scene.partialPath(*other.node));
        }
    }
    return names;
}

}  // namespace

void addConnectionCommands(kernel::Session& session)
{
    addBuiltin(session, "connectAttr", makeSyntax({{"force", "f"}, {"nextAvailable", "na"}}, Modes::Create, 2, 2),
               runConnectAttr);
    addBuiltin(session, "disconnectAttr", makeSyntax({{"nextAvailable", "na"}}, Modes::Create, 2, 2),
               runDisconnectAttr);
    addBuiltin(session, "isConnected", makeSyntax({}, Modes::Create, 2, 2), runIsConnected);
    addBuiltin(session, "listConnections",
               makeSyntax({{"source", "s", "b"},
                           {"destination", "d", "b"},
                           {"plugs", "p", "b"},
                           {"connections", "c", "b"},
                           {"type", "t", "s"}}),
               runListConnections);
}

}  // namespace mel
