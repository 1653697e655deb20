#include "kernel/Node.h"

#include "kernel/Scene.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace kernel {

namespace {

std::string freshUid()
{
    static std::mt19937_64 generator{std::random_device{}()};
    static const char digits[] = "0123456789ABCDEF";
    std::string uid = "00000000-0000-4000-8000-000000000000";
    for (char& c : uid) {
        if (c == '0')
            c = digits[generator() & 15];
    }
    return uid;
}

template <typename T>
double clampedTo(double number)
{
    const double lowest = std::numeric_limits<T>::lowest();
    const double highest = std::numeric_limits<T>::max();
    return std::min(std::max(number, lowest), highest);
}

/// A value as the attribute can hold it. False when it is of another sort altogether.
bool fit(const AttributeSpec& attribute, PlugValue& value)
{
    switch (attribute.kind) {
    case ValueKind::String: return std::holds_alternative<std::string>(value);
    case ValueKind::Custom:
        return std::holds_alternative<std::shared_ptr<CustomData>>(value)
            || std::holds_alternative<std::monostate>(value);
    case ValueKind::Compound:
    case ValueKind::Message: return false;
    default: break;
    }
    double* number = std::get_if<double>(&value);
    if (!number || !std::isfinite(*number))
        return false;  // no scene file could hold an infinity
    if (attribute.kind == ValueKind::Bool)
        *number = *number != 0 ? 1 : 0;
    else if (attribute.kind == ValueKind::Int || attribute.kind == ValueKind::Enum)
        *number = std::trunc(clampedTo<int>(*number));
    else if (attribute.kind == ValueKind::Float)
        *number = static_cast<float>(clampedTo<float>(*number));
    return true;
}

PlugValue defaultValue(const AttributeSpec& attribute)
{
    PlugValue value = attribute.defaultNumber;
    if (attribute.kind == ValueKind::String)
        return attribute.defaultText;
    return fit(attribute, value) ? value : PlugValue();
}

PlugFlags attributeFlags(const AttributeSpec& attribute)
{
    PlugFlags flags;
    flags.keyable = attribute.keyable;
    flags.channelBox = attribute.channelBox;
    return flags;
}

bool sameValue(const PlugValue& a, const PlugValue& b)
{
    // Data without content and no value at all mean the same.
    const auto* dataA = std::get_if<std::shared_ptr<CustomData>>(&a);
    const auto* dataB = std::get_if<std::shared_ptr<CustomData>>(&b);
    if (dataA || dataB)
        return (dataA ? dataA->get() : nullptr) == (dataB ? dataB->get() : nullptr);
    return a == b;
}

constexpr double kRadiansPerDegree = 3.14159265358979323846 / 180;

Matrix4 translation(const Vector3& v, double sign = 1)
{
    Matrix4 m;
    m.m[3][0] = sign * v.x;
    m.m[3][1] = sign * v.y;
    m.m[3][2] = sign * v.z;
    return m;
}

Matrix4 rotationAbout(int axis, double degrees)
{
    const double c = std::cos(degrees * kRadiansPerDegree);
    const double s = std::sin(degrees * kRadiansPerDegree);
    const int a = (axis + 1) % 3;
    const int b = (axis + 2) % 3;
    Matrix4 m;
    m.m[a][a] = c;
    m.m[a][b] = s;
    m.m[b][a] = -s;
    m.m[b][b] = c;
    return m;
}

/// order: index of the attribute's names, xyz:yzx:zxy:xzy:yxz:zyx, the first axis turned first.
Matrix4 rotation(const Vector3& degrees, int order)
{
    static const int axes[6][3] = {{0, 1, 2}, {1, 2, 0}, {2, 0, 1}, {0, 2, 1}, {1, 0, 2}, {2, 1, 0}};
    const double angles[3] = {degrees.x, degrees.y, degrees.z};
    Matrix4 m;
    for (const int axis : axes[order >= 0 && order < 6 ? order : 0])
        m = m * rotationAbout(axis, angles[axis]);
    return m;
}

}  // namespace

Node::Node(const NodeType& type, std::string name) : m_name(std::move(name)), m_uid(freshUid()), m_type(&type)
{
    if (type.isA("animCurve"))
        m_curve = std::make_unique<AnimCurve>();
}

Node::~Node()
{
    // Whole branches go at once, and may be deeper than calls can be nested.
    std::vector<NodePtr> left = std::move(m_children);
    while (!left.empty()) {
        const NodePtr child = std::move(left.back());
        left.pop_back();
        child->m_parent = nullptr;
        if (child.use_count() == 1) {
            left.insert(left.end(), child->m_children.begin(), child->m_children.end());
            child->m_children.clear();
        }
    }
}

const std::string& Node::typeName() const
{
    return unknownType.empty() ? m_type->name : unknownType;
}

PlugValue Node::value(const AttributeSpec& attribute) const
{
    // Asked for hundreds of attributes in every refresh: what is not animated must not pay for what is.
    return m_drivers || m_curve ? animatedValue(attribute) : heldValue(attribute);
}

PlugValue Node::heldValue(const AttributeSpec& attribute) const
{
    const auto it = m_state.values.find(attribute.longName);
    return it == m_state.values.end() ? defaultValue(attribute) : it->second;
}

double Node::number(const std::string& attributeName) const
{
    const AttributePtr spec = attribute(attributeName);
    if (!spec)
        return 0;
    const PlugValue held = value(*spec);
    const double* number = std::get_if<double>(&held);
    return number ? *number : 0;
}

std::string Node::text(const std::string& attributeName) const
{
    const AttributePtr spec = attribute(attributeName);
    if (!spec)
        return {};
    const PlugValue held = value(*spec);
    const std::string* text = std::get_if<std::string>(&held);
    return text ? *text : std::string();
}

void Node::setValue(const AttributeSpec& attribute, PlugValue value)
{
    if (!fit(attribute, value))
        return;
    if (isSceneTime(attribute)) {
        m_scene->setCurrentTime(Time{std::get<double>(value), m_scene->timeUnit()});
        return;
    }
    m_state.values[attribute.longName] = std::move(value);
    if (Driver* const driven = driver(attribute))
        driven->isAhead = true;
    changed();
    tellChanged(attribute);
}

void Node::tellChanged(const AttributeSpec& attribute)
{
    if (m_scene)
        m_scene->tell([&](ChangeListener& listener) { listener.attributeChanged(*this, attribute); });
}

bool Node::isSceneTime(const AttributeSpec& attribute) const
{
    // The default time node and the scene's current time are the same thing; its second output follows by itself.
    return m_scene && isDefaultNode && m_type->name == "time" && attribute.longName == "outTime";
}

bool Node::isDefault(const AttributeSpec& attribute) const
{
    return sameValue(value(attribute), defaultValue(attribute));
}

bool Node::isValueStored(const AttributeSpec& attribute) const
{
    if (isAnimated(attribute))
        return false;
    if (!isDefault(attribute))
        return true;
    if (!m_startState)
        return false;
    const auto it = m_startState->values.find(attribute.longName);
    return it != m_startState->values.end() && !sameValue(it->second, value(attribute));
}

bool Node::isChanged(const AttributeSpec& attribute) const
{
    if (!(flags(attribute) == initialFlags(attribute)))
        return true;
    if (isAnimated(attribute))
        return false;
    if (!m_startState)
        return !isDefault(attribute);
    const auto start = m_startState->values.find(attribute.longName);
    return start == m_startState->values.end() ? !isDefault(attribute) : !sameValue(start->second, value(attribute));
}

bool Node::isReadOnly() const
{
    return startup || isDefaultNode || referenced || m_type->name == "reference";
}

PlugFlags Node::flags(const AttributeSpec& attribute) const
{
    const auto it = m_state.flags.find(attribute.longName);
    if (it != m_state.flags.end())
        return it->second;
    return attributeFlags(attribute);
}

void Node::setFlags(const AttributeSpec& attribute, PlugFlags flags)
{
    if (flags == attributeFlags(attribute))
        m_state.flags.erase(attribute.longName);
    else
        m_state.flags[attribute.longName] = flags;
    changed();
}

bool Node::hasOwnFlags(const AttributeSpec& attribute) const
{
    return m_state.flags.count(attribute.longName) != 0;
}

PlugFlags Node::initialFlags(const AttributeSpec& attribute) const
{
    if (m_startState) {
        const auto it = m_startState->flags.find(attribute.longName);
        if (it != m_startState->flags.end())
            return it->second;
    }
    return attributeFlags(attribute);
}

void Node::changed()
{
    if (!m_scene)
        return;
    // Looking around through the startup cameras is no change worth saving, nor is going to another time.
    if (startup || (isDefaultNode && m_type->name == "time"))
        m_scene->requestRedraw();
    else
        m_scene->touch();
}

Matrix4 Node::localMatrix() const
{
    if (!m_type->isTransform())
        return Matrix4();
    const auto triple = [this](const std::string& name) {
        return Vector3{number(name + 'X'), number(name + 'Y'), number(name + 'Z')};
    };
    const Vector3 scale = triple("scale");
    Matrix4 scaling;
    scaling.m[0][0] = scale.x;
    scaling.m[1][1] = scale.y;
    scaling.m[2][2] = scale.z;
    Matrix4 shear;
    shear.m[1][0] = number("shearXY");
    shear.m[2][0] = number("shearXZ");
    shear.m[2][1] = number("shearYZ");

    const Vector3 scalePivot = triple("scalePivot");
    const Vector3 rotatePivot = triple("rotatePivot");
    const Matrix4 scaled = translation(scalePivot, -1) * scaling * shear * translation(scalePivot)
                         * translation(triple("scalePivotTranslate"));
    const Matrix4 rotated = translation(rotatePivot, -1) * rotation(triple("rotateAxis"), 0)
                          * rotation(triple("rotate"), static_cast<int>(number("rotateOrder")))
                          * translation(rotatePivot) * translation(triple("rotatePivotTranslate"));
    return scaled * rotated * translation(triple("translate"));
}

Matrix4 Node::worldMatrix() const
{
    const bool inherits = m_parent && (!m_type->isTransform() || number("inheritsTransform") != 0);
    return inherits ? localMatrix() * m_parent->worldMatrix() : localMatrix();
}

bool Node::isVisible() const
{
    for (const Node* node = this; node; node = node->m_parent) {
        if (node->number("visibility") == 0)
            return false;
    }
    return true;
}

}  // namespace kernel
