#include "contexts/DrawContextInputHandler.h"

#include "contexts/PenPressure.h"
#include "contexts/ThreadManager.h"
#include "settings/PenState.h"

#include <QTabletEvent>

void DrawContextInputHandler::setUp()
{
    penState::reset();
    watchActiveView();
}

void DrawContextInputHandler::cleanUp()
{
    m_views.release();
}

bool DrawContextInputHandler::eventFilter(QObject* watched, QEvent* event)
{
    ThreadManager::instance().noteInput(*event);
    switch (event->type()) {
    case QEvent::TabletMove:
    case QEvent::TabletPress:
    case QEvent::TabletRelease: followPen(static_cast<QTabletEvent&>(*event)); break;
    default: break;
    }
    return QObject::eventFilter(watched, event);
}

void DrawContextInputHandler::followPen(const QTabletEvent& event)
{
    // A pen that only hovers, or lifts, says nothing about its tip: the next press may be the mouse's.
    if (event.type() == QEvent::TabletPress || event.pressure() > 0.0) {
        penState::setEraserTip(event.pointerType() == QTabletEvent::Eraser);
    }
    if (event.pressure() > 0.0) {
        penState::setPressure(penPressureCurve(float(event.pressure())));
    }
}
