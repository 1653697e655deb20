#pragma once

#include "kernel/Scene.h"

#include <QAbstractItemModel>

#include <memory>
#include <unordered_map>
#include <vector>

namespace app {

/// The scene's hierarchy: transforms and, when wished, shapes. It mirrors only who is below whom, names and colours are
/// asked of the nodes when they are drawn. Setting data and dropping only tell what the user wants.
class SceneTree : public QAbstractItemModel {
    Q_OBJECT

public:
    explicit SceneTree(const kernel::Scene& scene, QObject* parent = nullptr);
    ~SceneTree() override;

    /// Takes over what changed in the hierarchy; true when anything did. What stayed in its place stays expanded.
    bool follow();
    /// Shows at the next follow().
    void setShowsShapes(bool on) { m_showsShapes = on; }

    /// Null for an invalid index and for a node that is gone.
    kernel::NodePtr node(const QModelIndex& index) const;
    /// Invalid for a node that is not listed.
    QModelIndex indexOf(const kernel::Node& node) const;

    QModelIndex index(int row, int column, const QModelIndex& parent = QModelIndex()) const override;
    QModelIndex parent(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = QModelIndex()) const override;
    int columnCount(const QModelIndex& parent = QModelIndex()) const override;
    QVariant data(const QModelIndex& index, int role) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    Qt::DropActions supportedDropActions() const override { return Qt::MoveAction; }
    bool dropMimeData(const QMimeData* data, Qt::DropAction action, int row, int column,
                      const QModelIndex& parent) override;

signals:
    void Renamed(const QModelIndex& index, const QString& name);
    /// The selected nodes are to go below another, or for an invalid index below the world.
    void Dropped(const QModelIndex& parent);

private:
    struct Entry {
        std::weak_ptr<kernel::Node> node;
        const kernel::Node* key = nullptr;  ///< in the table of entries; not to be looked at
        unsigned long long serial = 0;      ///< the node's
        Entry* parent = nullptr;
        int row = 0;
        std::vector<Entry*> children;
    };
    using Nodes = std::vector<kernel::NodePtr>;

    bool isListed(const kernel::Node& node) const;
    Nodes listedBelow(const Entry& entry) const;
    bool isCurrent() const;
    bool isInPlace(const Entry& entry) const;
    void removeMisplaced();
    void addMissing();
    void matchChildren(Entry& entry, const Nodes& wanted);
    void insert(Entry& entry, int row, const Nodes& nodes);
    void remove(Entry& entry, int first, int end);
    void forget(Entry* entry);
    QModelIndex indexOf(const Entry& entry) const;
    const Entry& entryOf(const QModelIndex& index) const;

    const kernel::Scene& m_scene;
    bool m_showsShapes = false;
    Entry m_root;
    std::unordered_map<const kernel::Node*, std::unique_ptr<Entry>> m_entries;  ///< all but the root
};

}  // namespace app
