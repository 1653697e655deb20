#include "api/Handles.h"

#include <maya/MObjectHandle.h>

#include <algorithm>
#include <functional>
#include <initializer_list>

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

struct KindName {
    MFn::Type type;
    const char* name;
};

const KindName kKindNames[] = {
    {MFn::kInvalid, "kInvalid"},
    {MFn::kDependencyNode, "kDependencyNode"},
    {MFn::kDagNode, "kDagNode"},
    {MFn::kTransform, "kTransform"},
    {MFn::kWorld, "kWorld"},
    {MFn::kShape, "kShape"},
    {MFn::kCamera, "kCamera"},
    {MFn::kLocator, "kLocator"},
    {MFn::kPluginDependNode, "kPluginDependNode"},
    {MFn::kPluginLocatorNode, "kPluginLocatorNode"},
    {MFn::kPluginShape, "kPluginShape"},
    {MFn::kAttribute, "kAttribute"},
    {MFn::kNumericAttribute, "kNumericAttribute"},
    {MFn::kEnumAttribute, "kEnumAttribute"},
    {MFn::kTypedAttribute, "kTypedAttribute"},
    {MFn::kPlugin, "kPlugin"},
    {MFn::kPluginData, "kPluginData"},
};

MFn::Type kindOf(const kernel::NodeType& type)
{
    const bool ofModule = !type.plugin.empty();
    switch (type.role) {
    case kernel::NodeRole::Dependency: return ofModule ? MFn::kPluginDependNode : MFn::kDependencyNode;
    case kernel::NodeRole::Dag: return MFn::kDagNode;
    case kernel::NodeRole::Transform: return MFn::kTransform;
    case kernel::NodeRole::Shape: return ofModule ? MFn::kPluginShape : MFn::kShape;
    case kernel::NodeRole::Camera: return MFn::kCamera;
    case kernel::NodeRole::Locator: return ofModule ? MFn::kPluginLocatorNode : MFn::kLocator;
    }
    return MFn::kInvalid;
}

bool isOfKind(const kernel::NodeType& type, MFn::Type kind)
{
    switch (kind) {
    case MFn::kBase:
    case MFn::kDependencyNode: return true;
    case MFn::kDagNode: return type.isDag();
    case MFn::kTransform: return type.isTransform();
    case MFn::kShape: return type.isShape();
    case MFn::kLocator: return type.role == kernel::NodeRole::Locator;
    default: return kind == kindOf(type);
    }
}

MFn::Type kindOf(const kernel::AttributeSpec& attribute)
{
    switch (attribute.kind) {
    case kernel::ValueKind::Bool:
    case kernel::ValueKind::Int:
    case kernel::ValueKind::Float:
    case kernel::ValueKind::Double:
    case kernel::ValueKind::Compound: return MFn::kNumericAttribute;
    case kernel::ValueKind::Enum: return MFn::kEnumAttribute;
    case kernel::ValueKind::String:
    case kernel::ValueKind::Custom: return MFn::kTypedAttribute;
    default: return MFn::kAttribute;
    }
}

bool isOneOf(MFn::Type kind, std::initializer_list<MFn::Type> kinds)
{
    return std::find(kinds.begin(), kinds.end(), kind) != kinds.end();
}

}  // namespace

MObject MObject::kNullObj;

MObject::MObject() = default;
MObject::MObject(const MObject& other) = default;
MObject::~MObject() = default;
MObject& MObject::operator=(const MObject& other) = default;

MObject::MObject(std::shared_ptr<const Body> body) : m_body(std::move(body)) {}

bool MObject::hasFn(MFn::Type type) const
{
    if (const auto node = api::nodeOf(*this))
        return isOfKind(node->type(), type);
    if (api::isWorld(*this))
        return isOneOf(type, {MFn::kBase, MFn::kDependencyNode, MFn::kDagNode, MFn::kWorld});
    if (const auto attribute = api::attributeOf(*this))
        return isOneOf(type, {MFn::kBase, MFn::kAttribute, kindOf(*attribute)});
    if (api::dataOf(*this))
        return isOneOf(type, {MFn::kBase, MFn::kData, MFn::kPluginData});
    if (api::moduleRecordOf(*this))
        return isOneOf(type, {MFn::kBase, MFn::kPlugin});
    return false;
}

MFn::Type MObject::apiType() const
{
    if (const auto node = api::nodeOf(*this))
        return kindOf(node->type());
    if (api::isWorld(*this))
        return MFn::kWorld;
    if (const auto attribute = api::attributeOf(*this))
        return kindOf(*attribute);
    if (api::dataOf(*this))
        return MFn::kPluginData;
    return api::moduleRecordOf(*this) ? MFn::kPlugin : MFn::kInvalid;
}

const char* MObject::apiTypeStr() const
{
    const MFn::Type type = apiType();
    for (const auto& row : kKindNames) {
        if (row.type == type)
            return row.name;
    }
    return "";
}

namespace {

template <typename T>
bool isSameOwner(const std::weak_ptr<T>& a, const std::weak_ptr<T>& b)
{
    return !a.owner_before(b) && !b.owner_before(a);
}

struct Sameness {
    bool operator()(const api::NodeRef& a, const api::NodeRef& b) const { return isSameOwner(a.node, b.node); }
    bool operator()(const api::WorldRef&, const api::WorldRef&) const { return true; }
    bool operator()(const api::AttributeRef& a, const api::AttributeRef& b) const { return a.attribute == b.attribute; }
    bool operator()(const api::DataRef& a, const api::DataRef& b) const { return a.data == b.data; }
    bool operator()(const api::ModuleRef& a, const api::ModuleRef& b) const { return isSameOwner(a.module, b.module); }
    template <typename A, typename B>
    bool operator()(const A&, const B&) const
    {
        return false;
    }
};

}  // namespace

bool MObject::operator==(const MObject& other) const
{
    if (m_body == other.m_body)
        return true;
    return m_body && other.m_body && std::visit(Sameness{}, m_body->what, other.m_body->what);
}

bool MObjectHandle::isValid() const
{
    if (const auto node = api::nodeOf(m_object))
        return node->isInScene();
    return isAlive();
}

bool MObjectHandle::isAlive() const
{
    return m_object.apiType() != MFn::kInvalid;
}

MObject MObjectHandle::object() const
{
    return m_object;
}

unsigned int MObjectHandle::hashCode() const
{
    return static_cast<unsigned int>(std::hash<const void*>()(api::nodeOf(m_object).get()));
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
