#pragma once

#include <QEvent>
#include <QPoint>
#include <QPointF>
#include <QPointer>
#include <QVector>

namespace view {
class Viewport;
}

namespace app {

/// Draws in a view as a user's hand does. The real pointer goes along, because tools look where it is by themselves;
/// the left button is told to the view alone, and what the user's mouse and keyboard do meanwhile waits until it is
/// released.
class PointerHand {
public:
    enum class End {
        Released,   ///< at the end of the path, and the tool has handled it
        Immovable,  ///< nothing was pressed: the desktop lets no program move the pointer
        Taken,      ///< the user moved the pointer, or the view went; released there
    };

    explicit PointerHand(view::Viewport& view) : m_view(&view) {}
    virtual ~PointerHand() = default;

    /// One stroke along a smooth curve through the points, which are pixels of the view's widget counted from its upper
    /// left and lie within it, as the stroke does. Between two points it is straight; a point given twice is a corner.
    /// pace: milliseconds for each four pixels of the way.
    End draw(const QVector<QPointF>& through, int pace);

protected:
    /// Tells the view of a mouse that is pressed, moved or released. at: where the pointer is on the screen. along: how
    /// far the hand has come, in points; 1.5 is midway between the second and the third.
    virtual void tell(QEvent::Type type, const QPoint& at, double along);
    view::Viewport* view() const { return m_view; }  ///< null once it has gone

private:
    QPointer<view::Viewport> m_view;
};

}  // namespace app
