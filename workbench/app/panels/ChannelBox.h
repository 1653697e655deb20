#pragma once

#include "app/panels/ScenePanel.h"

namespace app {

class ChannelModel;
class ChannelTable;

/// Shows the channels of the first selected node. What is typed goes to every selected channel of every selected node,
/// as one undo step.
class ChannelBox : public ScenePanel {
    Q_OBJECT

public:
    explicit ChannelBox(const PanelContext& context, QWidget* parent = nullptr);
    QSize sizeHint() const override;

protected:
    void refresh() override;

private slots:
    void Apply(int row, const QString& text);
    /// Runs the statement of the action that sent it for every selected channel of every selected node.
    void RunOnSelected();

private:
    void addActions();
    void rename(int row, const QString& name);

    ChannelModel* const m_model;
    ChannelTable* const m_table;
};

}  // namespace app
