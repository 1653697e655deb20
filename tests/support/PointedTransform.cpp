#include "support/PointedTransform.h"

#include "support/PointedPopup.h"

namespace support {

void PointedTransform::takeUp()
{
    m_host.run("tqLumisketchUtil -transform");
    m_host.settle();
}

void PointedTransform::select(const QPoint& corner, const QPoint& opposite)
{
    const QPoint origin = this->corner();
    m_host.hold(origin + corner, origin + opposite);
    m_host.letGo();
}

void PointedTransform::begin(const QPoint& corner, const QPoint& opposite)
{
    select(corner, opposite);
    apply();
}

void PointedTransform::move(const QPoint& by)
{
    drag(by);
}

void PointedTransform::turn(int degrees)
{
    m_host.keyDown("shift");
    drag(QPoint(degrees, 0));
    m_host.keyUp("shift");
}

void PointedTransform::scale(const QPoint& reach, int steps, bool separately)
{
    const QPoint middle = m_host.viewRect(m_panel).center();
    if (separately) {
        m_host.keyDown("shift");
    }
    m_host.hold(middle, middle + reach, PointerButton::Middle);
    for (int step = 1; step < steps; ++step) {
        m_host.moveTo(middle + reach + QPoint(step % 2, 0));
    }
    m_host.letGo();
    if (separately) {
        m_host.keyUp("shift");
    }
}

bool PointedTransform::choose(const QString& entry, const QPoint& at)
{
    const bool isChosen = PointedPopup(m_host, corner() + at).choose({entry});
    m_host.settle();
    return isChosen;
}

bool PointedTransform::choose(const QString& entry)
{
    return choose(entry, m_host.viewRect(m_panel).center() - corner());
}

void PointedTransform::drag(const QPoint& by, PointerButton button)
{
    const QPoint middle = m_host.viewRect(m_panel).center();
    m_host.hold(middle, middle + by, button);
    m_host.letGo();
}

}  // namespace support
