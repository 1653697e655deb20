#pragma once

#include "kernel/Scene.h"
#include "view/Bounds.h"
#include "view/CameraMath.h"

namespace view {

/// Where a camera stands within its parent, and what it looks at.
struct CameraPose {
    kernel::Vector3 translate;
    kernel::Vector3 rotate;  ///< degrees, xyz order
    double interest = 5;     ///< distance of the point it turns around
    double orthographicWidth = 30;
};

/// Swings around the point of interest: across about the vertical, up over the top; degrees. The roll stays.
CameraPose orbited(const CameraPose& pose, double across, double up);
/// Shifts in the plane of the picture; scene units, right and up.
CameraPose tracked(const CameraPose& pose, double right, double up);
/// Comes nearer (factor below 1) or goes away; an orthographic camera changes its width instead.
CameraPose dollied(const CameraPose& pose, double factor, bool orthographic);

/// Looks the same way, at the middle of a box that fills `fill` (above 0, at most 1) of the picture in the direction in
/// which it is larger. box: in the space the pose is in. A shift or zoom of the picture itself does not count. An
/// orthographic camera keeps its depth and changes its width.
CameraPose framed(const CameraPose& pose, const Box& box, Lens lens, double portAspect, double fill);

CameraPose poseOf(const kernel::Node& cameraShape);
/// Writes a pose back, without undo. Locked attributes stay as they are. Looking around with a startup camera does not
/// make a scene count as changed.
void applyPose(kernel::Scene& scene, kernel::Node& cameraShape, const CameraPose& pose);

/// How the picture itself is shifted and magnified.
struct PanZoom {
    double horizontalPan = 0;  ///< inches of film back
    double verticalPan = 0;
    double zoom = 1;  ///< below 1 magnifies
};

/// inches of film back, right and up; the picture moves the other way.
PanZoom panned(const PanZoom& from, double right, double up);
/// Magnifies (factor below 1) around the middle of the view, as far as a picture is of use.
PanZoom zoomed(const PanZoom& from, double factor);

PanZoom panZoomOf(const kernel::Node& cameraShape);
/// Writes it back as applyPose() does a pose, and switches it on. Nothing is done when it is locked off.
void applyPanZoom(kernel::Scene& scene, kernel::Node& cameraShape, const PanZoom& panZoom);

}  // namespace view
