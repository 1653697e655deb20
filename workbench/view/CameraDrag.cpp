#include "view/CameraDrag.h"

#include "view/CameraMoves.h"

#include <QMouseEvent>

#include <cmath>

namespace view {

namespace {

constexpr double kDegreesPerPixel = 0.4;
constexpr double kPixelsToHalve = 150;  // of a drag to and fro
constexpr double kWheelFactor = 0.9;    // per step

/// What a drag to the right or up multiplies distances with.
double factorOf(const QPoint& by)
{
    return std::pow(0.5, (by.x() - by.y()) / kPixelsToHalve);
}

}  // namespace

struct CameraDrag::Row {
    bool isPanZoomHeld;
    Qt::KeyboardModifiers modifiers;  ///< those that must be held
    Qt::MouseButton button;
    Move move;
};

const CameraDrag::Row CameraDrag::kRows[] = {
    {true, Qt::NoModifier, Qt::MidButton, Move::Pan},       {true, Qt::NoModifier, Qt::RightButton, Move::Zoom},
    {false, Qt::AltModifier, Qt::LeftButton, Move::Orbit},  {false, Qt::AltModifier, Qt::MidButton, Move::Track},
    {false, Qt::AltModifier, Qt::RightButton, Move::Dolly},
};

bool CameraDrag::begin(const QMouseEvent& press, bool isPanZoomHeld)
{
    for (const Row& row : kRows) {
        const bool hasModifiers = (press.modifiers() & row.modifiers) == row.modifiers;
        if (row.isPanZoomHeld == isPanZoomHeld && hasModifiers && row.button == press.button()) {
            m_move = row.move;
            m_button = press.button();
            m_from = press.pos();
            return true;
        }
    }
    return false;
}

void CameraDrag::moveTo(const QPoint& at, kernel::Scene& scene, kernel::Node& camera, const QSize& view)
{
    const QPoint by = at - m_from;
    if (by.isNull()) {
        return;
    }
    m_from = at;
    const Lens lens = lensOf(camera);
    const CameraPose pose = poseOf(camera);
    const double units = unitsPerPixel(frustumOf(lens, view.width(), view.height()), view.height(), pose.interest);
    switch (*m_move) {
    case Move::Orbit:
        if (!lens.orthographic) {
            applyPose(scene, camera, orbited(pose, by.x() * kDegreesPerPixel, by.y() * kDegreesPerPixel));
        }
        break;
    case Move::Track: applyPose(scene, camera, tracked(pose, -by.x() * units, by.y() * units)); break;
    case Move::Dolly: applyPose(scene, camera, dollied(pose, factorOf(by), lens.orthographic)); break;
    case Move::Pan: {
        const double inches = inchesPerPixel(lens, view.width(), view.height());
        applyPanZoom(scene, camera, panned(panZoomOf(camera), -by.x() * inches, by.y() * inches));
        break;
    }
    case Move::Zoom: applyPanZoom(scene, camera, zoomed(panZoomOf(camera), factorOf(by))); break;
    }
}

void turnWheel(double steps, kernel::Scene& scene, kernel::Node& camera, bool isPanZoomHeld)
{
    const double factor = std::pow(kWheelFactor, steps);
    if (isPanZoomHeld) {
        applyPanZoom(scene, camera, zoomed(panZoomOf(camera), factor));
    } else {
        applyPose(scene, camera, dollied(poseOf(camera), factor, lensOf(camera).orthographic));
    }
}

}  // namespace view
