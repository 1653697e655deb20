#include "app/panels/ChannelDelegate.h"

#include "app/panels/ChannelModel.h"

#include <QComboBox>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>

namespace app {

namespace {

kernel::AttributePtr attributeOf(const QModelIndex& index)
{
    return static_cast<const ChannelModel*>(index.model())->attribute(index.row());
}

}  // namespace

QWidget* ChannelDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem&, const QModelIndex& index) const
{
    const kernel::AttributePtr attribute = attributeOf(index);
    if (!attribute || attribute->kind != kernel::ValueKind::Enum) {
        auto* const line = new QLineEdit(parent);
        line->setFrame(false);
        line->setPalette(QGuiApplication::palette());  // the table's ground is not a field's
        return line;
    }
    auto* const names = new QComboBox(parent);
    for (const std::string& name : attribute->enumNames) {
        names->addItem(QString::fromStdString(name));
    }
    connect(names, SIGNAL(activated(int)), this, SLOT(TakeChoice()));
    return names;
}

void ChannelDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const
{
    const QString text = index.data(Qt::EditRole).toString();
    if (auto* const names = qobject_cast<QComboBox*>(editor)) {
        names->setCurrentIndex(text.toInt());
        return;
    }
    // What is being typed stays when the scene changes below it.
    auto* const line = qobject_cast<QLineEdit*>(editor);
    if (!line->isModified()) {
        line->setText(text);
        line->selectAll();
    }
}

void ChannelDelegate::setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const
{
    if (const auto* const names = qobject_cast<QComboBox*>(editor)) {
        const int chosen = names->currentIndex();  // -1 while the value has no name
        if (chosen >= 0 && chosen != index.data(Qt::EditRole).toInt()) {
            model->setData(index, QString::number(chosen));
        }
        return;
    }
    auto* const line = qobject_cast<QLineEdit*>(editor);
    if (line->isModified()) {
        line->setModified(false);
        model->setData(index, line->text());
    }
}

bool ChannelDelegate::eventFilter(QObject* editor, QEvent* event)
{
    auto* const widget = qobject_cast<QWidget*>(editor);
    if (widget && event->type() == QEvent::KeyPress && pressKey(widget, static_cast<QKeyEvent*>(event)->key())) {
        return true;
    }
    return QStyledItemDelegate::eventFilter(editor, event);
}

bool ChannelDelegate::pressKey(QWidget* editor, int key)
{
    const bool isLine = qobject_cast<QLineEdit*>(editor) != nullptr;
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_Down:
        if (!isLine) {
            return false;
        }
        emit commitData(editor);
        emit closeEditor(editor, key == Qt::Key_Up ? EditPreviousItem : EditNextItem);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit commitData(editor);
        emit closeEditor(editor, NoHint);
        emit Left();
        return true;
    case Qt::Key_Escape:
        emit closeEditor(editor, RevertModelCache);
        emit Left();
        return true;
    default: return false;
    }
}

void ChannelDelegate::TakeChoice()
{
    auto* const names = qobject_cast<QComboBox*>(sender());
    emit commitData(names);
    emit closeEditor(names, NoHint);
    emit Left();
}

}  // namespace app
