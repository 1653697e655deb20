#pragma once

#include "app/PointerHand.h"

namespace app {

/// A hand with a tablet's pen in it. Its window is told of the pen first and, as long as nobody takes that, the view of
/// the mouse that the pen counts as: what the toolkit makes of a pen that the system reports. It hovers before it
/// touches and after it lifts.
class PenHand : public PointerHand {
public:
    enum class Tip { Point, Eraser };

    /// pressures: 0..1, one for each point that is drawn through; between two points it changes evenly.
    PenHand(view::Viewport& view, QVector<double> pressures, Tip tip);

    /// One event of the pen. at: on the screen. False when somebody took it.
    bool tellOfPen(QEvent::Type type, const QPoint& at, double pressure, Qt::MouseButtons held);

protected:
    void tell(QEvent::Type type, const QPoint& at, double along) override;

private:
    double pressure(double along) const;
    const QVector<double> m_pressures;
    const Tip m_tip;
};

}  // namespace app
