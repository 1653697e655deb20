#include "kernel/Node.h"

#include "kernel/Scene.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kernel {

namespace {

/// What an attribute makes of a curve's value: nothing past its limits, and the next whole number if it holds such.
double asHeld(const AttributeSpec& attribute, double number)
{
    if (attribute.maximum)
        number = std::min(number, *attribute.maximum);
    if (attribute.minimum)
        number = std::max(number, *attribute.minimum);
    switch (attribute.kind) {
    case ValueKind::Bool: return number != 0 ? 1 : 0;
    case ValueKind::Int:
    case ValueKind::Enum: return std::round(std::min(std::max(number, -2147483648.0), 2147483647.0));
    case ValueKind::Float: return static_cast<float>(std::min(std::max(number, -3.4e38), 3.4e38));
    default: return number;
    }
}

}  // namespace

Node::Driver* Node::driver(const AttributeSpec& attribute) const
{
    if (!m_drivers)
        return nullptr;
    const auto it = m_drivers->find(attribute.longName);
    // A curve that was deleted may come back.
    return it != m_drivers->end() && it->second.curve->isInScene() ? &it->second : nullptr;
}

/// What a curve says of an attribute, which may be a curve's own output. heedsAhead: nothing for one that was set since
/// time last changed.
std::optional<double> Node::curveNumber(const AttributeSpec& attribute, double ticks, bool heedsAhead) const
{
    if (m_curve && attribute.longName == "output")
        return m_curve->valueAt(ticks);
    const Driver* const driven = driver(attribute);
    if (!driven || (heedsAhead && driven->isAhead) || driven->curve->m_curve->isEmpty())
        return std::nullopt;
    return asHeld(attribute, driven->curve->m_curve->valueAt(ticks));
}

/// The value of a node that has to do with curves.
PlugValue Node::animatedValue(const AttributeSpec& attribute) const
{
    if (!m_scene)
        return heldValue(attribute);
    const std::optional<double> number = curveNumber(attribute, m_scene->currentTime().ticks(), true);
    return number ? PlugValue(*number) : heldValue(attribute);
}

PlugValue Node::valueAt(const AttributeSpec& attribute, const Time& time) const
{
    const std::optional<double> number = curveNumber(attribute, time.ticks(), false);
    return number ? PlugValue(*number) : heldValue(attribute);
}

NodePtr Node::curveOf(const AttributeSpec& attribute) const
{
    const Driver* const driven = driver(attribute);
    return driven ? driven->curve : nullptr;
}

bool Node::hasKeyNow(const AttributeSpec& attribute) const
{
    const NodePtr driving = curveOf(attribute);
    return driving && m_scene && driving->m_curve->keyAt(m_scene->currentTime().ticks());
}

std::vector<AttributePtr> Node::animatedAttributes() const
{
    std::vector<AttributePtr> animated;
    if (!m_drivers)
        return animated;
    for (const auto& row : *m_drivers) {
        const AttributePtr spec = row.second.curve->isInScene() ? attribute(row.first) : nullptr;
        if (spec)
            animated.push_back(spec);
    }
    return animated;
}

void Node::setCurve(const AttributePtr& attribute, const NodePtr& curve)
{
    if (m_drivers) {
        const auto before = m_drivers->find(attribute->longName);
        if (before != m_drivers->end()) {
            std::vector<Driven>& others = before->second.curve->m_driven;
            others.erase(std::remove_if(others.begin(), others.end(),
                                        [&](const Driven& one) {
                                            return one.node.expired()
                                                || (one.node.lock().get() == this
                                                    && one.attribute->longName == attribute->longName);
                                        }),
                         others.end());
            m_drivers->erase(before);
        }
    }
    if (curve) {
        if (!m_drivers)
            m_drivers = std::make_unique<std::map<std::string, Driver>>();
        (*m_drivers)[attribute->longName].curve = curve;
        curve->m_driven.push_back({weak_from_this(), attribute});
    } else if (m_drivers && m_drivers->empty()) {
        m_drivers.reset();
    }
    changed();
    tellChanged(*attribute);
}

PlugState Node::plugState(const AttributeSpec& attribute) const
{
    // An attribute's default is no value of its own: one of a time means another instant in another unit.
    const auto held = m_state.values.find(attribute.longName);
    const Driver* const driven = driver(attribute);
    return {held == m_state.values.end() ? PlugValue() : held->second, driven && driven->isAhead};
}

void Node::setPlugState(const AttributeSpec& attribute, PlugState state)
{
    if (!std::holds_alternative<std::monostate>(state.value)) {
        setValue(attribute, std::move(state.value));
    } else if (m_state.values.erase(attribute.longName) > 0) {
        changed();
        tellChanged(attribute);
    }
    if (Driver* const driven = driver(attribute))
        driven->isAhead = state.isAhead;
}

void Node::changeCurve(const std::function<void(AnimCurve&)>& change)
{
    change(*m_curve);
    changed();
    followTime();
    tellDriven();
}

std::vector<Plug> Node::drivenPlugs() const
{
    std::vector<Plug> plugs;
    for (const Driven& one : m_driven) {
        const NodePtr node = one.node.lock();
        if (node && node->isInScene() && node->curveOf(*one.attribute).get() == this)
            plugs.push_back({node, one.attribute});
    }
    // Whatever was undone or read again since they were connected.
    std::sort(plugs.begin(), plugs.end(), [](const Plug& a, const Plug& b) {
        return a.node != b.node ? isOlder(a.node, b.node) : a.attribute->longName < b.attribute->longName;
    });
    return plugs;
}

void Node::followTime()
{
    for (const Plug& plug : drivenPlugs())
        plug.node->driver(*plug.attribute)->isAhead = false;
}

void Node::tellDriven()
{
    for (const Plug& plug : drivenPlugs())
        plug.node->tellChanged(*plug.attribute);
}

}  // namespace kernel
