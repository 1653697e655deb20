#pragma once

#include <QEvent>
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

    /// One stroke along a smooth curve through the points, which are pixels of the view's widget counted from its upper
    /// left and lie within it, as the stroke does. Between two points it is straight; a point given twice is a corner.
    /// pace: milliseconds for each four pixels of the way.
    End draw(const QVector<QPointF>& through, int pace);

private:
    /// To the view, where the pointer is.
    void send(QEvent::Type type, Qt::MouseButton button);

    QPointer<view::Viewport> m_view;
};

}  // namespace app
