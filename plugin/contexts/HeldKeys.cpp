#include "contexts/HeldKeys.h"

#include <QKeyEvent>

void HeldKeys::follow(const QKeyEvent& event)
{
    if (event.isAutoRepeat()) {
        return;
    }
    const bool isHeld = event.type() == QEvent::KeyPress;
    switch (event.key()) {
    case Qt::Key_B: m_size = isHeld && isOurs(event); break;
    case Qt::Key_M: m_opacity = isHeld && isOurs(event); break;
    case Qt::Key_Backslash: m_backslash = isHeld; break;
    default: break;
    }
}

bool HeldKeys::isOurs(const QKeyEvent& event)
{
    const bool isShortcut = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    return !isShortcut && (event.key() == Qt::Key_B || event.key() == Qt::Key_M);
}

bool HeldKeys::isShared(const QKeyEvent& event)
{
    return event.key() == Qt::Key_Backslash;
}
