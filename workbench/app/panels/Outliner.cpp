#include "app/panels/Outliner.h"

#include "app/panels/OutlinerView.h"
#include "app/panels/SceneTree.h"
#include "mel/builtins/Quoting.h"

#include <QAction>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include <algorithm>
#include <unordered_set>

namespace app {

using kernel::NodePtr;

Outliner::Outliner(const PanelContext& context, QWidget* parent)
    : ScenePanel(context, parent), m_tree(new SceneTree(scene(), this)), m_view(new OutlinerView)
{
    auto* const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_view);
    m_view->setModel(m_tree);
    auto* const shapes = new QAction(tr("Shapes"), m_view);
    shapes->setCheckable(true);
    m_view->addAction(shapes);
    m_view->setContextMenuPolicy(Qt::ActionsContextMenu);
    connect(shapes, SIGNAL(toggled(bool)), this, SLOT(ShowShapes(bool)));
    connect(m_view->selectionModel(), SIGNAL(selectionChanged(QItemSelection, QItemSelection)), this,
            SLOT(SelectInScene()));
    connect(m_tree, SIGNAL(Renamed(QModelIndex, QString)), this, SLOT(Rename(QModelIndex, QString)));
    connect(m_tree, SIGNAL(Dropped(QModelIndex)), this, SLOT(Reparent(QModelIndex)));
}

QSize Outliner::sizeHint() const
{
    return QSize(200, 400);
}

void Outliner::refresh()
{
    bool isOther = false;
    {
        // Rows that go take their selection with them.
        const QScopedValueRollback<bool> following(m_isFollowing, true);
        isOther = m_tree->follow();
    }
    if (isOther || !isShown(scene().selection())) {
        showSelection();
    }
    m_view->viewport()->update();  // for names and states
}

bool Outliner::isShown(const std::vector<NodePtr>& selection) const
{
    return std::equal(
        selection.begin(), selection.end(), m_shown.begin(), m_shown.end(),
        [](const NodePtr& node, const std::weak_ptr<kernel::Node>& shown) { return shown.lock() == node; });
}

void Outliner::showSelection()
{
    const QScopedValueRollback<bool> following(m_isFollowing, true);
    m_shown.assign(scene().selection().begin(), scene().selection().end());
    QModelIndexList rows;
    for (const NodePtr& node : scene().selection()) {
        const QModelIndex own = m_tree->indexOf(*node);
        // A shape that is not listed shows through its transform.
        const QModelIndex row = own.isValid() || !node->parent() ? own : m_tree->indexOf(*node->parent());
        if (row.isValid()) {
            rows << row;
        }
    }
    std::sort(rows.begin(), rows.end(), [](const QModelIndex& a, const QModelIndex& b) {
        const void* const parents[] = {a.parent().internalPointer(), b.parent().internalPointer()};
        return parents[0] != parents[1] ? std::less<const void*>()(parents[0], parents[1]) : a.row() < b.row();
    });
    // Neighbours in one range: a selection of thousands of ranges would be slow.
    QItemSelection selection;
    for (int first = 0, last = 0; first < rows.size(); first = ++last) {
        while (last + 1 < rows.size() && rows[last + 1].parent() == rows[first].parent()
               && rows[last + 1].row() <= rows[last].row() + 1) {
            ++last;
        }
        selection.append(QItemSelectionRange(rows[first], rows[last]));
    }
    m_view->selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
}

/// What is selected in the tree. Those that were selected before stay first, in their order, which has a meaning.
std::vector<NodePtr> Outliner::chosen() const
{
    std::vector<NodePtr> wanted;
    std::unordered_set<const kernel::Node*> added;
    const QModelIndexList rows = m_view->selectionModel()->selectedRows();
    std::unordered_set<const kernel::Node*> inView;
    for (const QModelIndex& row : rows) {
        inView.insert(m_tree->node(row).get());
    }
    for (const NodePtr& node : scene().selection()) {
        if (inView.count(node.get())) {
            wanted.push_back(node);
            added.insert(node.get());
        }
    }
    for (const QModelIndex& row : rows) {
        const NodePtr node = m_tree->node(row);
        if (node && added.insert(node.get()).second) {
            wanted.push_back(node);
        }
    }
    return wanted;
}

void Outliner::SelectInScene()
{
    if (m_isFollowing) {
        return;
    }
    const std::vector<NodePtr> wanted = chosen();
    std::string script = wanted.empty() ? "select -clear" : "select -replace";
    for (const NodePtr& node : wanted) {
        script += ' ' + mel::quoted(scene().partialPath(*node));
    }
    m_shown.clear();
    run(script);
}

void Outliner::Rename(const QModelIndex& index, const QString& name)
{
    if (const NodePtr node = m_tree->node(index)) {
        runSoon("rename " + mel::quoted(scene().partialPath(*node)) + ' ' + mel::quoted(name.toStdString()));
    }
}

void Outliner::Reparent(const QModelIndex& parent)
{
    const NodePtr above = m_tree->node(parent);
    std::string nodes;
    for (const NodePtr& node : scene().selection()) {
        if (node != above && node->parent() != above.get()) {
            nodes += ' ' + mel::quoted(scene().partialPath(*node));
        }
    }
    if (!nodes.empty()) {
        runSoon(above ? "parent" + nodes + ' ' + mel::quoted(scene().partialPath(*above)) : "parent -world" + nodes);
    }
}

void Outliner::ShowShapes(bool on)
{
    m_tree->setShowsShapes(on);
    ScheduleRefresh();
}

}  // namespace app
