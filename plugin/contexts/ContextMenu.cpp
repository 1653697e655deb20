#include "contexts/ContextMenu.h"

#include <QCursor>
#include <QMenu>
#include <QMouseEvent>

bool asksForContextMenu(const QMouseEvent& event)
{
    // The second of two quick presses comes as a double click.
    return (event.type() == QEvent::MouseButtonPress || event.type() == QEvent::MouseButtonDblClick)
        && event.button() == Qt::RightButton && event.buttons() == Qt::RightButton
        && event.modifiers() == Qt::NoModifier;
}

void popUpAtCursor(QMenu* menu)
{
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->setAttribute(Qt::WA_NoMouseReplay);  // the click beside it that closes it is not the tool's
    menu->popup(QCursor::pos());
}

void dismiss(QMenu* menu)
{
    if (menu && menu->isVisible()) {
        delete menu;
    }
}
