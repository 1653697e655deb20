#pragma once

#include "app/panels/ScenePanel.h"

class QModelIndex;
class QTreeView;

namespace app {

class SceneTree;

/// The hierarchy of the scene, to select, rename and parent nodes in.
class Outliner : public ScenePanel {
    Q_OBJECT

public:
    explicit Outliner(const PanelContext& context, QWidget* parent = nullptr);
    QSize sizeHint() const override;

protected:
    void refresh() override;

private slots:
    void SelectInScene();
    void Rename(const QModelIndex& index, const QString& name);
    void Reparent(const QModelIndex& parent);
    void ShowShapes(bool on);

private:
    void showSelection();
    std::vector<kernel::NodePtr> chosen() const;
    bool isShown(const std::vector<kernel::NodePtr>& selection) const;

    SceneTree* const m_tree;
    QTreeView* const m_view;
    std::vector<std::weak_ptr<kernel::Node>> m_shown;  ///< the scene's selection as it was shown last
    bool m_isFollowing = false;
};

}  // namespace app
