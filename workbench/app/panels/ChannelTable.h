#pragma once

#include <QTableView>

namespace app {

class ChannelModel;

/// The rows of the channel box. The cursor goes from field to field; keys that are no entry are left to the window.
class ChannelTable : public QTableView {
    Q_OBJECT

public:
    explicit ChannelTable(ChannelModel& model, QWidget* parent = nullptr);

    /// The rows of attributes that are selected, in whatever column, top first.
    QList<int> selectedRows() const;

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;

private slots:
    /// The keys that follow are not for the table.
    void Leave() { clearFocus(); }
    void ArrangeNames();

private:
    void leaveKeysToTool();
    bool beginsValue(const QKeyEvent& event) const;

    ChannelModel& m_model;
};

}  // namespace app
