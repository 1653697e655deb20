#include "contexts/DrawContextInputHandler.h"

#include "contexts/ThreadManager.h"

#include <QTabletEvent>

void DrawContextInputHandler::setUp()
{
    m_pen.reset();
    watchActiveView();
}

void DrawContextInputHandler::cleanUp()
{
    m_views.release();
    m_pen.reset();
}

bool DrawContextInputHandler::eventFilter(QObject* watched, QEvent* event)
{
    ThreadManager::instance().noteInput(*event);
    switch (event->type()) {
    case QEvent::TabletMove:
    case QEvent::TabletPress:
    case QEvent::TabletRelease: m_pen.follow(static_cast<QTabletEvent&>(*event)); break;
    default: break;
    }
    return QObject::eventFilter(watched, event);
}
