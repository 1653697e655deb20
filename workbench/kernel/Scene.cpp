#include "kernel/Scene.h"

#include "kernel/Session.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace kernel {

namespace {

/// The node and everything below it, parents first. Scenes may be nested very deep, so nothing here recurses.
std::vector<NodePtr> withDescendants(const NodePtr& node)
{
    std::vector<NodePtr> nodes{node};
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const std::vector<NodePtr>& children = nodes[i]->children();
        nodes.insert(nodes.end(), children.begin(), children.end());
    }
    return nodes;
}

bool isBelow(const Node* node, const Node& ancestor)
{
    if (ancestor.children().empty())
        return node == &ancestor;
    for (; node; node = node->parent()) {
        if (node == &ancestor)
            return true;
    }
    return false;
}

void insertAt(std::vector<NodePtr>& list, const NodePtr& node, int index)
{
    const bool last = index < 0 || index > static_cast<int>(list.size());
    list.insert(last ? list.end() : list.begin() + index, node);
}

void erase(std::vector<NodePtr>& list, const NodePtr& node)
{
    list.erase(std::remove(list.begin(), list.end(), node), list.end());
}

}  // namespace

Scene::Scene(Session& session) : m_session(session) {}

Scene::~Scene()
{
    // Idle work or a tool may hold a node longer than this.
    for (const std::weak_ptr<Node>& weak : m_all) {
        if (const NodePtr node = weak.lock())
            node->m_scene = nullptr;
    }
}

NodePtr Scene::makeNode(const NodeType& type, const std::string& name)
{
    const std::string wanted = legalName(!name.empty() ? name : type.name + (type.isShape() ? "Shape#" : "#"));
    const auto node = std::make_shared<Node>(type, wanted.back() == '#' ? uniqueName(wanted) : wanted);
    node->m_serial = m_nextSerial++;
    if (m_all.size() >= m_pruneAt) {
        m_all.erase(std::remove_if(m_all.begin(), m_all.end(), [](const auto& weak) { return weak.expired(); }),
                    m_all.end());
        m_pruneAt = std::max<std::size_t>(64, m_all.size() * 2);
    }
    m_all.push_back(node);
    if (type.makeProxy) {
        node->setProxy(type.makeProxy(*node));
        if (node->proxy())
            node->proxy()->postConstructor();
    }
    return node;
}

NodePtr Scene::makeUnknownNode(const std::string& typeName, const std::string& name, bool isDag)
{
    const NodePtr node = makeNode(*m_session.nodeTypes.find(isDag ? "unknownDag" : "unknown"), name);
    node->unknownType = typeName;
    return node;
}

void Scene::makeUnknownTransform(const NodePtr& node)
{
    if (node->unknownType.empty() || node->type().isTransform())
        return;
    const bool wasDag = node->type().isDag();
    node->m_type = m_session.nodeTypes.find("unknownTransform");
    if (!wasDag) {
        const auto later = std::find_if(m_roots.begin(), m_roots.end(),
                                        [&node](const NodePtr& root) { return root->m_serial > node->m_serial; });
        m_roots.insert(later, node);
    }
    touch();
}

void Scene::checkParent(const Node& node, const Node* parent) const
{
    if (!parent)
        return;
    if (!node.type().isDag() || !parent->type().isTransform() || parent->m_scene != this)
        throw CommandError("Node '" + parent->name() + "' cannot be the parent of '" + node.name() + "'.");
    if (isBelow(parent, node))
        throw CommandError("Cannot parent an object to one of its own children.");
}

void Scene::attach(const NodePtr& node, Node* parent, int index)
{
    if (node->m_scene)
        return;
    checkParent(*node, parent);
    node->m_name = freeName(node->m_name, *node, parent);
    node->m_parent = parent;
    if (node->type().isDag())
        insertAt(parent ? parent->m_children : m_roots, node, index);
    for (const NodePtr& one : withDescendants(node))
        addToScene(one);
    touch();
    if (node->type().isDag())
        raise("DagObjectCreated");
}

void Scene::addToScene(const NodePtr& node)
{
    node->m_scene = this;
    // A node that comes back takes its old place, so that undo leaves the scene file as it was.
    m_nodes.insert(std::upper_bound(m_nodes.begin(), m_nodes.end(), node, isOlder), node);
    m_names.add(node);
    if (node->curve())
        m_curves[node->m_serial] = node.get();
}

void Scene::detach(const NodePtr& node)
{
    if (node->m_scene != this)
        return;
    const NodePtr kept = node;  // the caller's may be an element of the lists below
    if (kept->type().isDag())
        erase(kept->m_parent ? kept->m_parent->m_children : m_roots, kept);
    kept->m_parent = nullptr;
    const std::vector<NodePtr> removed = withDescendants(kept);
    std::for_each(removed.rbegin(), removed.rend(), [this](const NodePtr& one) { removeFromScene(one); });
    touch();
}

void Scene::removeFromScene(const NodePtr& node)
{
    node->m_scene = nullptr;
    m_nodes.erase(std::lower_bound(m_nodes.begin(), m_nodes.end(), node, isOlder));
    m_names.remove(node);
    m_curves.erase(node->m_serial);
    if (std::find(m_selection.begin(), m_selection.end(), node) != m_selection.end()) {
        erase(m_selection, node);
        selectionChanged();
    }
    tell([&](ChangeListener& listener) { listener.nodeRemoved(*node); });
}

int Scene::childIndex(const Node& node) const
{
    const std::vector<NodePtr>& siblings = node.m_parent ? node.m_parent->m_children : m_roots;
    const auto it =
        std::find_if(siblings.begin(), siblings.end(), [&node](const NodePtr& one) { return one.get() == &node; });
    return it == siblings.end() ? -1 : static_cast<int>(it - siblings.begin());
}

void Scene::setParent(const NodePtr& node, Node* parent, int index)
{
    checkParent(*node, parent);
    const NodePtr kept = node;
    erase(kept->m_parent ? kept->m_parent->m_children : m_roots, kept);
    giveName(*kept, freeName(kept->m_name, *kept, parent));
    kept->m_parent = parent;
    kept->absentParent.clear();
    insertAt(parent ? parent->m_children : m_roots, kept, index);
    touch();
}

void Scene::walkDag(const std::function<bool(Node&)>& visit) const
{
    // The visitor may change the graph: whoever is to be visited is held here.
    std::vector<NodePtr> next(m_roots.rbegin(), m_roots.rend());
    while (!next.empty()) {
        const NodePtr node = std::move(next.back());
        next.pop_back();
        if (visit(*node))
            next.insert(next.end(), node->children().rbegin(), node->children().rend());
    }
}

std::vector<NodePtr> Scene::cameras() const
{
    std::vector<NodePtr> cameras;
    for (const NodePtr& node : m_nodes) {
        if (node->type().role == NodeRole::Camera)
            cameras.push_back(node);
    }
    std::stable_sort(cameras.begin(), cameras.end(), [](const NodePtr& a, const NodePtr& b) {
        if (a->startup != b->startup)
            return a->startup;
        return a->startup && a->name() < b->name();
    });
    return cameras;
}

void Scene::setSelection(std::vector<NodePtr> nodes)
{
    std::vector<NodePtr> selection;
    std::unordered_set<const Node*> seen;
    for (NodePtr& node : nodes) {
        if (node && node->m_scene == this && seen.insert(node.get()).second)
            selection.push_back(std::move(node));
    }
    m_selection.swap(selection);
    selectionChanged();
    requestRedraw();
}

void Scene::selectionChanged()
{
    if (!std::exchange(m_selectionEventDue, true)) {
        m_session.idle.post(
            [this] {
                m_selectionEventDue = false;
                m_session.events.raise("SelectionChanged");
            },
            IdleQueue::Priority::First);
    }
    m_session.events.setCondition("SomethingSelected", !m_selection.empty());
}

void Scene::touch()
{
    if (!isBusyWithFile())
        m_modified = true;
    requestRedraw();
}

void Scene::requestRedraw()
{
    if (m_touched)
        m_touched();
}

void Scene::tell(const std::function<void(ChangeListener& listener)>& report)
{
    if (m_session.changes && !isBusyWithFile())
        report(*m_session.changes);
}

void Scene::raise(const char* event)
{
    // While a file is read the scene is half there; whoever listens is told once it is complete.
    if (!isBusyWithFile())
        m_session.events.raise(event);
}

}  // namespace kernel
