#pragma once

#include "api/Views.h"

namespace api {

/// Where a world point falls in a view, in port pixels.
struct PortPoint {
    double x = 0;
    double y = 0;
    bool isDefined = false;  ///< false only in the camera's own plane, where x and y mean nothing
    bool isInside = false;   ///< in the view's volume
};

/// Points behind the camera are projected too, mirrored through it.
PortPoint projectToPort(const kernel::Vector3& world, const ViewMatrices& matrices, int width, int height);

/// The line seen at a port pixel, from the near clipping plane to the far one.
struct PortRay {
    kernel::Vector3 nearPoint;
    kernel::Vector3 farPoint;
    kernel::Vector3 direction() const;  ///< unit length, away from the camera
};
PortRay rayThroughPort(double x, double y, const ViewMatrices& matrices, int width, int height);

}  // namespace api
