#include "app/panels/OutlinerView.h"

#include <QFocusEvent>
#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>

namespace app {

namespace {

const int kMovingKeys[] = {Qt::Key_Up,   Qt::Key_Down, Qt::Key_Left,   Qt::Key_Right,
                           Qt::Key_Home, Qt::Key_End,  Qt::Key_PageUp, Qt::Key_PageDown};

}  // namespace

OutlinerView::OutlinerView(QWidget* parent) : QTreeView(parent)
{
    setObjectName("outlinerTree");
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setFrameShape(QFrame::NoFrame);
    setSelectionMode(ExtendedSelection);
    setEditTriggers(DoubleClicked | EditKeyPressed);
    setExpandsOnDoubleClick(false);
    setDragDropMode(InternalMove);
    header()->setStretchLastSection(true);
}

void OutlinerView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape) {
        clearFocus();
    } else if (event->key() == Qt::Key_F2
               || std::find(std::begin(kMovingKeys), std::end(kMovingKeys), event->key()) != std::end(kMovingKeys)) {
        QTreeView::keyPressEvent(event);
    } else {
        event->ignore();
    }
}

void OutlinerView::currentChanged(const QModelIndex& current, const QModelIndex& previous)
{
    QTreeView::currentChanged(current, previous);
    leaveKeysToTool();
}

void OutlinerView::focusInEvent(QFocusEvent* event)
{
    QTreeView::focusInEvent(event);
    leaveKeysToTool();
}

/// A row that can be renamed would make the whole tree a place to type in.
void OutlinerView::leaveKeysToTool()
{
    setAttribute(Qt::WA_InputMethodEnabled, false);
}

}  // namespace app
