#include "app/PenHand.h"

#include "view/Viewport.h"

#include <QApplication>
#include <QTabletEvent>
#include <QWindow>

#include <algorithm>

namespace app {

namespace {

QEvent::Type penTypeOf(QEvent::Type mouseType)
{
    switch (mouseType) {
    case QEvent::MouseButtonPress: return QEvent::TabletPress;
    case QEvent::MouseButtonRelease: return QEvent::TabletRelease;
    default: return QEvent::TabletMove;
    }
}

}  // namespace

PenHand::PenHand(view::Viewport& view, QVector<double> pressures, Tip tip)
    : PointerHand(view), m_pressures(std::move(pressures)), m_tip(tip)
{}

double PenHand::pressure(double along) const
{
    const int before = std::min(int(along), m_pressures.size() - 1);
    const int after = std::min(before + 1, m_pressures.size() - 1);
    return m_pressures[before] + (along - before) * (m_pressures[after] - m_pressures[before]);
}

void PenHand::tell(QEvent::Type type, const QPoint& at, double along)
{
    const bool lifts = type == QEvent::MouseButtonRelease;
    if (type == QEvent::MouseButtonPress) {
        tellOfPen(QEvent::TabletMove, at, 0, Qt::NoButton);
    }
    const bool isLeft = lifts ? tellOfPen(QEvent::TabletRelease, at, 0, Qt::NoButton)
                              : tellOfPen(penTypeOf(type), at, pressure(along), Qt::LeftButton);
    if (isLeft && view() && QCoreApplication::testAttribute(Qt::AA_SynthesizeMouseForUnhandledTabletEvents)) {
        PointerHand::tell(type, at, along);
    }
    if (lifts && view()) {
        tellOfPen(QEvent::TabletMove, at, 0, Qt::NoButton);
    }
}

bool PenHand::tellOfPen(QEvent::Type type, const QPoint& at, double pressure, Qt::MouseButtons held)
{
    QWindow* const window = view()->window()->windowHandle();
    if (!window) {
        return true;
    }
    const Qt::MouseButton button = type == QEvent::TabletMove ? Qt::NoButton : Qt::LeftButton;
    QTabletEvent event(type, window->mapFromGlobal(at), at, QTabletEvent::Stylus,
                       m_tip == Tip::Eraser ? QTabletEvent::Eraser : QTabletEvent::Pen, pressure, 0, 0, 0, 0, 0,
                       Qt::NoModifier, 1, button, held);
    event.ignore();
    QApplication::sendEvent(window, &event);
    return !event.isAccepted();
}

}  // namespace app
