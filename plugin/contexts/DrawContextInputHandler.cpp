#include "contexts/DrawContextInputHandler.h"

#include "contexts/PenPressure.h"
#include "settings/PenState.h"

#include <QTabletEvent>

#include <maya/M3dView.h>

void DrawContextInputHandler::setUp()
{
    penState::reset();
    m_views.clear();
    watchActiveView();
}

void DrawContextInputHandler::cleanUp()
{
    for (const QPointer<QWidget>& view : m_views) {
        if (view) {
            view->removeEventFilter(this);
        }
    }
    m_views.clear();
}

void DrawContextInputHandler::watchActiveView()
{
    MStatus status;
    M3dView view = M3dView::active3dView(&status);
    QWidget* widget = status ? view.widget() : nullptr;
    if (widget && !m_views.contains(widget)) {
        widget->installEventFilter(this);
        m_views.append(widget);
    }
}

bool DrawContextInputHandler::eventFilter(QObject* watched, QEvent* event)
{
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
