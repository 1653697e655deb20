#pragma once

#include "kernel/Scene.h"

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

CameraPose poseOf(const kernel::Node& cameraShape);
/// Writes a pose back, without undo. Locked attributes stay as they are. Looking around with a startup camera does not
/// make a scene count as changed.
void applyPose(kernel::Scene& scene, kernel::Node& cameraShape, const CameraPose& pose);

}  // namespace view
