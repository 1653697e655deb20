#include "contexts/PenContact.h"

#include "contexts/PenPressure.h"
#include "contexts/ThreadManager.h"
#include "settings/PenState.h"

#include <QTabletEvent>

void PenContact::reset()
{
    *this = PenContact();
    penState::reset();
}

void PenContact::follow(const QTabletEvent& event)
{
    if (!isFollowed(event)) {
        return;
    }
    if (event.type() == QEvent::TabletRelease) {
        m_isDown = false;
        if (!m_buttonIsDown) {
            reset();  // else the end of a stroke may still be sampled
        }
        return;
    }
    m_isDown = true;
    m_pen = event.uniqueId();
    penState::setEraserTip(event.pointerType() == QTabletEvent::Eraser);
    if (penState::isEraserTip() && m_buttonIsDown && !m_hasPressure) {
        ThreadManager::instance().eraseInstead();
    }
    if (!(event.pressure() > 0.0)) {
        return;  // says nothing
    }
    const float pressure = penPressureCurve(float(event.pressure()));
    if (m_buttonIsDown && !m_hasPressure) {
        ThreadManager::instance().weighStroke(pressure);
    } else {
        penState::setPressure(pressure);
    }
    m_hasPressure = true;
}

// A pen that only hovers says nothing about its tip: the next press may be the mouse's.
bool PenContact::isFollowed(const QTabletEvent& event) const
{
    switch (event.type()) {
    case QEvent::TabletPress: return !m_isDown || !m_buttonIsDown || event.uniqueId() == m_pen;
    case QEvent::TabletMove: return m_isDown ? event.uniqueId() == m_pen : m_buttonIsDown && event.pressure() > 0.0;
    default: return m_isDown && event.uniqueId() == m_pen;
    }
}

void PenContact::pressButton()
{
    if (!m_isDown) {
        reset();
    }
    m_buttonIsDown = true;
}
