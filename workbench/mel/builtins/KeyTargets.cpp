#include "mel/builtins/KeyTargets.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_set>

namespace mel {

using kernel::AttributePtr;
using kernel::CommandError;
using kernel::NodePtr;
using kernel::Plug;

namespace {

/// What a key command is for, as it was named.
struct Subjects {
    std::vector<Plug> plugs;
    std::vector<NodePtr> nodes;  ///< each once
    std::unordered_set<NodePtr> known;

    void add(const NodePtr& node)
    {
        if (known.insert(node).second)
            nodes.push_back(node);
    }
};

void addNode(const BuiltinCall& call, const NodePtr& node, Subjects& subjects)
{
    subjects.add(node);
    if (!call.args.integer("shape", 0, 1))
        return;
    for (const NodePtr& child : node->children()) {
        if (child->type().isShape())
            subjects.add(child);
    }
}

Subjects subjectsOf(const BuiltinCall& call)
{
    Subjects subjects;
    for (const std::string& name : call.objectNames()) {
        if (name.find('.') != std::string::npos) {
            const auto plug = call.scene.findPlug(name);
            subjects.plugs.push_back({plug.first, plug.second});
            continue;
        }
        for (const NodePtr& node : nodesOf(call.scene, name))
            addNode(call, node, subjects);
    }
    if (call.args.objects.empty()) {
        for (const NodePtr& node : call.scene.selection())
            addNode(call, node, subjects);
    }
    if (subjects.plugs.empty() && subjects.nodes.empty())
        throw CommandError("No object was specified");
    return subjects;
}

/// The attribute, or the numbers a compound is made of.
void addParts(const Plug& plug, std::vector<Plug>& parts)
{
    if (plug.attribute->kind != kernel::ValueKind::Compound)
        return parts.push_back(plug);
    for (const std::string& child : plug.attribute->children)
        parts.push_back({plug.node, plug.node->attribute(child)});
}

std::vector<std::string> attributeNames(const BuiltinCall& call)
{
    std::vector<std::string> names;
    for (unsigned use = 0; use < call.args.useCount("attribute"); ++use)
        names.push_back(kernel::toText(call.args.values("attribute", use)->front()));
    return names;
}

void addNamed(const std::string& name, const std::vector<NodePtr>& nodes, std::vector<Plug>& plugs)
{
    const std::size_t before = plugs.size();
    for (const NodePtr& node : nodes) {
        if (const AttributePtr attribute = node->attribute(name))
            addParts({node, attribute}, plugs);
    }
    if (plugs.size() == before && !nodes.empty())
        throw CommandError("No object matches name: " + nodes.front()->name() + '.' + name);
}

/// The attributes that are named, one by one or by -attribute.
std::vector<Plug> namedPlugs(const BuiltinCall& call, const Subjects& subjects)
{
    std::vector<Plug> plugs;
    for (const Plug& plug : subjects.plugs)
        addParts(plug, plugs);
    for (const std::string& name : attributeNames(call))
        addNamed(name, subjects.nodes, plugs);
    return plugs;
}

/// wanted: which of the attributes that are not named.
template <typename Wanted>
std::vector<NodePtr> curvesOf(const BuiltinCall& call, const Wanted& wanted)
{
    const Subjects subjects = subjectsOf(call);
    std::vector<NodePtr> curves;
    std::unordered_set<NodePtr> known;
    const auto add = [&](const NodePtr& curve) {
        if (curve && curve->curve() && known.insert(curve).second)
            curves.push_back(curve);
    };
    for (const Plug& plug : namedPlugs(call, subjects))
        add(plug.node->curveOf(*plug.attribute));
    if (call.args.has("attribute"))
        return curves;
    for (const NodePtr& node : subjects.nodes) {
        add(node);
        for (const AttributePtr& attribute : node->animatedAttributes()) {
            if (wanted(*node, *attribute))
                add(node->curveOf(*attribute));
        }
    }
    return curves;
}

double ticksIn(const BuiltinCall& call, const std::string& text)
{
    return ticksOf(call.time(kernel::Value(text)));
}

}  // namespace

std::vector<Plug> plugsToKey(const BuiltinCall& call)
{
    const Subjects subjects = subjectsOf(call);
    std::vector<Plug> plugs = namedPlugs(call, subjects);
    if (call.args.has("attribute"))
        return plugs;
    for (const NodePtr& node : subjects.nodes) {
        for (const AttributePtr& attribute : node->type().allAttributes()) {
            if (node->flags(*attribute).keyable && kernel::canBeAnimated(*node, *attribute)
                && !kernel::isLockedPlug(*node, *attribute))
                plugs.push_back({node, attribute});
        }
    }
    return plugs;
}

std::vector<NodePtr> curvesToRead(const BuiltinCall& call)
{
    return curvesOf(call, [](const kernel::Node&, const kernel::AttributeSpec&) { return true; });
}

std::vector<NodePtr> curvesToEdit(const BuiltinCall& call)
{
    return curvesOf(call, [](const kernel::Node& node, const kernel::AttributeSpec& attribute) {
        return !kernel::isLockedPlug(node, attribute);
    });
}

double ticksOf(const kernel::Time& time)
{
    const double ticks = time.ticks();
    if (!std::isfinite(ticks))
        throw CommandError("Invalid time: " + kernel::numberText(time.value));
    return ticks;
}

std::vector<TickSpan> spansOf(const BuiltinCall& call)
{
    constexpr double kEndless = std::numeric_limits<double>::infinity();
    std::vector<TickSpan> spans;
    for (unsigned use = 0; use < call.args.useCount("time"); ++use) {
        const std::string text = kernel::toText(call.args.values("time", use)->front());
        const std::size_t colon = text.find(':');
        const std::string first = text.substr(0, colon);
        const std::string last = colon == std::string::npos ? first : text.substr(colon + 1);
        spans.push_back({first.empty() && colon == 0 ? -kEndless : ticksIn(call, first),
                         last.empty() && colon != std::string::npos ? kEndless : ticksIn(call, last)});
    }
    if (spans.empty())
        spans.push_back({-kEndless, kEndless});
    return spans;
}

bool isWithin(const kernel::CurveKey& key, const std::vector<TickSpan>& spans)
{
    return std::any_of(spans.begin(), spans.end(),
                       [&key](const TickSpan& span) { return key.ticks >= span.first && key.ticks <= span.last; });
}

}  // namespace mel
