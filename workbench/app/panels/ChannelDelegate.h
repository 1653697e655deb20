#pragma once

#include <QStyledItemDelegate>

namespace app {

/// The fields of the channel box: a line to type in, for an enum the list of its names. Up and Down go on to the next
/// field, Return and Escape leave the box.
class ChannelDelegate : public QStyledItemDelegate {
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;

signals:
    /// Editing is over, and the keys that follow are not for the box.
    void Left();

protected:
    bool eventFilter(QObject* editor, QEvent* event) override;

private slots:
    void TakeChoice();

private:
    bool pressKey(QWidget* editor, int key);
};

}  // namespace app
