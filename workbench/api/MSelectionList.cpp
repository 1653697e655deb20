#include <maya/MSelectionList.h>

#include "api/Handles.h"
#include "kernel/Command.h"
#include "kernel/Session.h"

OPENMAYA_MAJOR_NAMESPACE_OPEN

namespace {

kernel::Scene& scene()
{
    return kernel::Session::current().scene;
}

MPlug plugOfName(const std::string& name)
{
    try {
        const auto [node, attribute] = scene().findPlug(name);
        return MPlug(api::toObject(node), api::toObject(attribute));
    } catch (const kernel::CommandError&) {
        return MPlug();
    }
}

}  // namespace

MSelectionList::MSelectionList() = default;

bool MSelectionList::areSame(const Item& a, const Item& b)
{
    return a.node == b.node && MPlug(a.plug) == b.plug;
}

MString MSelectionList::textOf(const Item& item)
{
    MPlug plug = item.plug;
    if (!plug.isNull())
        return plug.name();
    const auto node = api::nodeOf(item.node);
    return node ? api::toHost(scene().partialPath(*node)) : MString();
}

int MSelectionList::indexOf(const Item& item) const
{
    for (std::size_t i = 0; i < m_items.size(); ++i) {
        if (areSame(m_items[i], item))
            return int(i);
    }
    return -1;
}

MStatus MSelectionList::addItem(const Item& item, bool mergeWithExisting)
{
    if (!mergeWithExisting || indexOf(item) < 0)
        m_items.push_back(item);
    return MStatus::kSuccess;
}

MStatus MSelectionList::add(const MString& nameOrPattern, const bool)
{
    const std::string name = api::toKernel(nameOrPattern);
    if (name.find('.') != std::string::npos) {
        const MPlug plug = plugOfName(name);
        return add(plug);
    }
    const auto nodes = scene().find(name);
    for (const auto& node : nodes)
        addItem({api::toObject(node), MPlug()}, false);
    return nodes.empty() ? MStatus::kInvalidParameter : MStatus::kSuccess;
}

MStatus MSelectionList::add(const MObject& node, const bool mergeWithExisting)
{
    if (!api::nodeOf(node))
        return MStatus::kInvalidParameter;
    return addItem({node, MPlug()}, mergeWithExisting);
}

MStatus MSelectionList::add(const MPlug& plug, const bool mergeWithExisting)
{
    if (!api::nodeOf(plug))
        return MStatus::kInvalidParameter;
    return addItem({api::HandleAccess::node(plug), plug}, mergeWithExisting);
}

MStatus MSelectionList::add(const MDagPath& path, const MObject& component, const bool mergeWithExisting)
{
    return component.isNull() ? add(path.node(), mergeWithExisting) : MStatus(MStatus::kInvalidParameter);
}

MStatus MSelectionList::add(const MUuid& uuid, bool mergeWithExisting)
{
    const std::string wanted = api::toKernel(uuid.asString());
    for (const auto& node : scene().nodes()) {
        if (node->uid() == wanted)
            return add(api::toObject(node), mergeWithExisting);
    }
    return MStatus::kInvalidParameter;
}

MStatus MSelectionList::clear()
{
    m_items.clear();
    return MStatus::kSuccess;
}

bool MSelectionList::isEmpty(MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, MStatus::kSuccess);
    return m_items.empty();
}

unsigned int MSelectionList::length(MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, MStatus::kSuccess);
    return static_cast<unsigned int>(m_items.size());
}

MStatus MSelectionList::remove(unsigned int index)
{
    if (index >= m_items.size())
        return MStatus::kInvalidParameter;
    m_items.erase(m_items.begin() + index);
    return MStatus::kSuccess;
}

MStatus MSelectionList::getDagPath(unsigned int index, MDagPath& path, MObject& component) const
{
    if (index >= m_items.size())
        return MStatus::kInvalidParameter;
    // The default argument is the shared null object, which must stay one.
    if (&component != &MObject::kNullObj)
        component = MObject();
    return MDagPath::getAPathTo(m_items[index].node, path);
}

MStatus MSelectionList::getDependNode(unsigned int index, MObject& node) const
{
    if (index >= m_items.size())
        return MStatus::kInvalidParameter;
    node = m_items[index].node;
    return api::nodeOf(node) ? MStatus::kSuccess : MStatus::kFailure;
}

MStatus MSelectionList::getPlug(unsigned int index, MPlug& plug) const
{
    if (index >= m_items.size())
        return MStatus::kInvalidParameter;
    MPlug held = m_items[index].plug;
    if (held.isNull())
        return MStatus::kFailure;
    plug = held;
    return MStatus::kSuccess;
}

MStatus MSelectionList::getSelectionStrings(MStringArray& strings) const
{
    strings.clear();
    for (const Item& item : m_items)
        strings.append(textOf(item));
    return MStatus::kSuccess;
}

MStatus MSelectionList::getSelectionStrings(unsigned int index, MStringArray& strings) const
{
    if (index >= m_items.size())
        return MStatus::kInvalidParameter;
    strings.clear();
    return strings.append(textOf(m_items[index]));
}

bool MSelectionList::hasItem(const MObject& node, MStatus* ReturnStatus) const
{
    api::report(ReturnStatus, MStatus::kSuccess);
    return indexOf({node, MPlug()}) >= 0;
}

bool MSelectionList::hasItem(const MDagPath& path, const MObject& component, MStatus* ReturnStatus) const
{
    return hasItem(path.node(), ReturnStatus) && component.isNull();
}

MStatus MSelectionList::merge(const MSelectionList& other, MergeStrategy strategy)
{
    const std::vector<Item> given = other.m_items;  // a list may be merged with itself
    for (const Item& item : given) {
        const int present = indexOf(item);
        if (present < 0 && strategy != kRemoveFromList)
            m_items.push_back(item);
        else if (present >= 0 && strategy != kMergeNormal)
            m_items.erase(m_items.begin() + present);
    }
    return MStatus::kSuccess;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
