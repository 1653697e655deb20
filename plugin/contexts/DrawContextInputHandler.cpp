#include "contexts/DrawContextInputHandler.h"

#include "contexts/ContextMenu.h"
#include "contexts/DrawToolMenu.h"
#include "contexts/PenPressure.h"
#include "contexts/TimelineMenu.h"
#include "settings/PenState.h"
#include "settings/Preferences.h"
#include "settings/Text.h"

#include <QTabletEvent>

#include <maya/MQtUtil.h>

void DrawContextInputHandler::setUp()
{
    penState::reset();
    m_backslashHeld = false;
    if (!m_timeSlider && MQtUtil::mainWindow()) {
        m_timeSlider = MQtUtil::findControl(toMString(script::timeControlName()));
    }
    for (QWidget* widget : {MQtUtil::mainWindow(), m_timeSlider.data()}) {
        if (widget) {
            widget->installEventFilter(this);
        }
    }
    watchActiveView();
}

void DrawContextInputHandler::cleanUp()
{
    for (QWidget* widget : {MQtUtil::mainWindow(), m_timeSlider.data()}) {
        if (widget) {
            widget->removeEventFilter(this);
        }
    }
    m_views.release();
    // Our code may be gone before the host would next delete what is closed. A menu that has led here is closed
    // already.
    if (m_menu && m_menu->isVisible()) {
        delete m_menu;
    }
}

bool DrawContextInputHandler::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::TabletMove:
    case QEvent::TabletPress:
    case QEvent::TabletRelease: followPen(static_cast<QTabletEvent&>(*event)); break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: return openMenu(watched, static_cast<QMouseEvent&>(*event));
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        if (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Backslash) {
            m_backslashHeld = event->type() == QEvent::KeyPress;
        }
        break;
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

bool DrawContextInputHandler::openMenu(QObject* pressed, const QMouseEvent& event)
{
    QMenu* const menu = asksForContextMenu(event) ? menuOf(pressed) : nullptr;
    if (menu) {
        m_menu = menu;
        popUpAtCursor(menu);
    }
    return menu != nullptr;
}

QMenu* DrawContextInputHandler::menuOf(QObject* pressed) const
{
    const Preferences& preferences = Preferences::instance();
    if (pressed == m_timeSlider) {
        return preferences.timelineContextMenu() ? new TimelineMenu(*m_timeSlider) : nullptr;
    }
    const bool isWanted = preferences.drawToolContextMenu() && !m_backslashHeld && m_views.contains(pressed);
    return isWanted ? new DrawToolMenu(static_cast<QWidget&>(*pressed)) : nullptr;
}
