#pragma once

#include "kernel/Scene.h"

#include <QPoint>
#include <QSize>

#include <optional>

class QMouseEvent;

namespace view {

/// A drag that moves the camera of a view. Like the wheel it leaves no undo step behind.
class CameraDrag {
public:
    /// Starts one if the press asks for it: with Alt in space, with the key for it held in the plane of the picture.
    bool begin(const QMouseEvent& press, bool isPanZoomHeld);
    void end() { m_move.reset(); }
    bool isActive() const { return m_move.has_value(); }
    Qt::MouseButton button() const { return m_button; }
    /// at: where the pointer is now; view: size of the view, in the same pixels.
    void moveTo(const QPoint& at, kernel::Scene& scene, kernel::Node& camera, const QSize& view);

private:
    enum class Move { Orbit, Track, Dolly, Pan, Zoom };
    struct Row;
    static const Row kRows[];

    std::optional<Move> m_move;
    Qt::MouseButton m_button = Qt::NoButton;
    QPoint m_from;
};

/// steps: of the wheel, above 0 away from the hand, which brings the scene nearer or magnifies the picture.
void turnWheel(double steps, kernel::Scene& scene, kernel::Node& camera, bool isPanZoomHeld);

}  // namespace view
