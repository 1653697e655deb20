#include "support/PointedTransform.h"

#include "support/PointedPopup.h"

namespace support {

namespace {

constexpr int kStepMs = 8;

}  // namespace

void PointedTransform::takeUp()
{
    m_host.run("tqLumisketchUtil -transform");
    m_host.settle();
}

void PointedTransform::select(const QPoint& corner, const QPoint& opposite)
{
    const QPoint origin = this->corner();
    drag({origin + corner, origin + opposite});
}

void PointedTransform::begin(const QPoint& corner, const QPoint& opposite)
{
    select(corner, opposite);
    apply();
}

void PointedTransform::move(const QPoint& by)
{
    const QPoint from = middle();
    drag({from, from + by});
}

void PointedTransform::turn(int degrees)
{
    m_host.keyDown("shift");
    move(QPoint(degrees, 0));
    m_host.keyUp("shift");
}

void PointedTransform::scale(const QPoint& reach, int steps, bool separately)
{
    QVector<QPoint> way = {middle()};
    for (int step = 0; step < steps; ++step) {
        way << way.first() + reach + QPoint(step % 2, 0);
    }
    if (separately) {
        m_host.keyDown("shift");
    }
    drag(way, PointerButton::Middle);
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
    return choose(entry, middle() - corner());
}

void PointedTransform::drag(const QVector<QPoint>& way, PointerButton button)
{
    m_host.drag(way, kStepMs, 0, button);
}

}  // namespace support
