#include "app/panels/SceneTree.h"

#include <QGuiApplication>
#include <QPalette>
#include <QSize>

#include <algorithm>

namespace app {

namespace {

constexpr int kRowHeight = 22;
constexpr int kTemplateDisplay = 1;  // of overrideDisplayType

bool isTemplate(const kernel::Node& node)
{
    return node.number("template") != 0
        || (node.number("overrideEnabled") != 0 && int(node.number("overrideDisplayType")) == kTemplateDisplay);
}

}  // namespace

SceneTree::SceneTree(const kernel::Scene& scene, QObject* parent) : QAbstractItemModel(parent), m_scene(scene) {}

SceneTree::~SceneTree() = default;

// --- following the scene -------------------------------------------------------------------------------------------

bool SceneTree::follow()
{
    if (isCurrent()) {
        return false;
    }
    // First out, then in: a node that went below another is never in two places.
    removeMisplaced();
    addMissing();
    return true;
}

bool SceneTree::isListed(const kernel::Node& node) const
{
    return node.type().isTransform() || m_showsShapes;
}

SceneTree::Nodes SceneTree::listedBelow(const Entry& entry) const
{
    const kernel::NodePtr node = entry.node.lock();
    const Nodes& all = node ? node->children() : m_scene.roots();
    Nodes listed;
    std::copy_if(all.begin(), all.end(), std::back_inserter(listed),
                 [this](const kernel::NodePtr& child) { return isListed(*child); });
    return listed;
}

// Asked after every change of the scene, most of which are of values.
bool SceneTree::isCurrent() const
{
    std::vector<std::pair<const Entry*, const Nodes*>> left{{&m_root, &m_scene.roots()}};
    while (!left.empty()) {
        const auto [entry, nodes] = left.back();
        left.pop_back();
        std::size_t row = 0;
        for (const kernel::NodePtr& node : *nodes) {
            if (!isListed(*node)) {
                continue;
            }
            if (row == entry->children.size() || entry->children[row]->serial != node->serial()) {
                return false;
            }
            left.emplace_back(entry->children[row], &node->children());
            ++row;
        }
        if (row != entry->children.size()) {
            return false;
        }
    }
    return true;
}

bool SceneTree::isInPlace(const Entry& entry) const
{
    const kernel::NodePtr node = entry.node.lock();
    return node && node->isInScene() && isListed(*node) && node->parent() == entry.parent->node.lock().get();
}

// Scenes may be nested very deep, so nothing here recurses.
void SceneTree::removeMisplaced()
{
    std::vector<Entry*> left{&m_root};
    while (!left.empty()) {
        Entry& entry = *left.back();
        left.pop_back();
        for (int end = int(entry.children.size()); end > 0;) {
            int first = end;
            while (first > 0 && !isInPlace(*entry.children[std::size_t(first - 1)])) {
                --first;
            }
            remove(entry, first, end);
            end = std::min(first, end - 1);
        }
        left.insert(left.end(), entry.children.begin(), entry.children.end());
    }
}

void SceneTree::addMissing()
{
    std::vector<Entry*> left{&m_root};
    while (!left.empty()) {
        Entry& entry = *left.back();
        left.pop_back();
        matchChildren(entry, listedBelow(entry));
        left.insert(left.end(), entry.children.begin(), entry.children.end());
    }
}

/// Exchanges what lies between those at the beginning and at the end that are the same.
void SceneTree::matchChildren(Entry& entry, const Nodes& wanted)
{
    const std::vector<Entry*>& held = entry.children;
    const auto isOf = [](const Entry* one, const kernel::NodePtr& node) { return one->serial == node->serial(); };
    const auto differs = std::mismatch(held.begin(), held.end(), wanted.begin(), wanted.end(), isOf);
    const auto same = int(differs.first - held.begin());
    int heldEnd = int(held.size());
    int wantedEnd = int(wanted.size());
    while (heldEnd > same && wantedEnd > same
           && isOf(held[std::size_t(heldEnd - 1)], wanted[std::size_t(wantedEnd - 1)])) {
        --heldEnd;
        --wantedEnd;
    }
    remove(entry, same, heldEnd);
    insert(entry, same, Nodes(wanted.begin() + same, wanted.begin() + wantedEnd));
}

void SceneTree::insert(Entry& entry, int row, const Nodes& nodes)
{
    if (nodes.empty()) {
        return;
    }
    beginInsertRows(indexOf(entry), row, row + int(nodes.size()) - 1);
    std::vector<Entry*> added;
    for (const kernel::NodePtr& node : nodes) {
        auto made = std::make_unique<Entry>();
        made->node = node;
        made->key = node.get();
        made->serial = node->serial();
        made->parent = &entry;
        added.push_back(made.get());
        m_entries[node.get()] = std::move(made);
    }
    entry.children.insert(entry.children.begin() + row, added.begin(), added.end());
    for (std::size_t i = std::size_t(row); i < entry.children.size(); ++i) {
        entry.children[i]->row = int(i);
    }
    endInsertRows();
}

void SceneTree::remove(Entry& entry, int first, int end)
{
    if (first == end) {
        return;
    }
    beginRemoveRows(indexOf(entry), first, end - 1);
    const std::vector<Entry*> removed(entry.children.begin() + first, entry.children.begin() + end);
    entry.children.erase(entry.children.begin() + first, entry.children.begin() + end);
    for (std::size_t i = std::size_t(first); i < entry.children.size(); ++i) {
        entry.children[i]->row = int(i);
    }
    for (Entry* one : removed) {
        forget(one);
    }
    endRemoveRows();
}

void SceneTree::forget(Entry* entry)
{
    std::vector<Entry*> left{entry};
    while (!left.empty()) {
        Entry* const one = left.back();
        left.pop_back();
        left.insert(left.end(), one->children.begin(), one->children.end());
        m_entries.erase(one->key);
    }
}

// --- the model -----------------------------------------------------------------------------------------------------

kernel::NodePtr SceneTree::node(const QModelIndex& index) const
{
    return index.isValid() ? entryOf(index).node.lock() : nullptr;
}

QModelIndex SceneTree::indexOf(const kernel::Node& node) const
{
    const auto found = m_entries.find(&node);
    return found == m_entries.end() ? QModelIndex() : indexOf(*found->second);
}

QModelIndex SceneTree::indexOf(const Entry& entry) const
{
    return &entry == &m_root ? QModelIndex() : createIndex(entry.row, 0, const_cast<Entry*>(&entry));
}

const SceneTree::Entry& SceneTree::entryOf(const QModelIndex& index) const
{
    return index.isValid() ? *static_cast<const Entry*>(index.internalPointer()) : m_root;
}

QModelIndex SceneTree::index(int row, int column, const QModelIndex& parent) const
{
    return hasIndex(row, column, parent) ? indexOf(*entryOf(parent).children[std::size_t(row)]) : QModelIndex();
}

QModelIndex SceneTree::parent(const QModelIndex& index) const
{
    return index.isValid() ? indexOf(*entryOf(index).parent) : QModelIndex();
}

int SceneTree::rowCount(const QModelIndex& parent) const
{
    return int(entryOf(parent).children.size());
}

int SceneTree::columnCount(const QModelIndex&) const
{
    return 1;
}

QVariant SceneTree::data(const QModelIndex& index, int role) const
{
    const kernel::NodePtr node = this->node(index);
    if (!node) {
        return QVariant();
    }
    switch (role) {
    case Qt::DisplayRole:
    case Qt::EditRole: return QString::fromStdString(node->name());
    case Qt::SizeHintRole: return QSize(0, kRowHeight);
    case Qt::ToolTipRole: return QString::fromStdString(node->typeName());
    case Qt::ForegroundRole:
        return node->isReadOnly() || isTemplate(*node) || !node->isVisible()
                 ? QGuiApplication::palette().brush(QPalette::Disabled, QPalette::Text)
                 : QVariant();
    default: return QVariant();
    }
}

bool SceneTree::setData(const QModelIndex& index, const QVariant& value, int role)
{
    const kernel::NodePtr node = this->node(index);
    if (role != Qt::EditRole || !node || value.toString() == QString::fromStdString(node->name())) {
        return false;
    }
    emit Renamed(index, value.toString());
    return true;
}

Qt::ItemFlags SceneTree::flags(const QModelIndex& index) const
{
    const kernel::NodePtr node = this->node(index);
    if (!node) {
        return Qt::ItemIsDropEnabled;  // the world
    }
    Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    if (!node->isReadOnly()) {
        flags |= Qt::ItemIsEditable | Qt::ItemIsDragEnabled;
    }
    return node->type().isTransform() ? flags | Qt::ItemIsDropEnabled : flags;
}

bool SceneTree::dropMimeData(const QMimeData*, Qt::DropAction, int, int, const QModelIndex& parent)
{
    emit Dropped(parent);
    return false;  // the rows move when the scene's nodes did
}

}  // namespace app
