#pragma once

#include "api/Views.h"

namespace view {

/// What of a camera decides its picture. Apertures, offsets and pans are inches of film back, the focal length is
/// millimetres, everything else scene units.
struct Lens {
    bool orthographic = false;
    double focalLength = 35;
    double horizontalAperture = 1.417;
    double verticalAperture = 0.945;
    enum class Fit { Fill, Horizontal, Vertical, Overscan } fit = Fit::Fill;
    double overscan = 1;  ///< how much wider than the gate the view shows
    double orthographicWidth = 30;
    double nearPlane = 0.1;
    double farPlane = 10000;
    bool panZoom = false;
    double zoom = 1;  ///< below 1 magnifies
    double horizontalPan = 0;
    double verticalPan = 0;
};

/// Reads a camera shape. Values no picture can be made with (a focal length of 0, a far plane before the near one)
/// come back as the nearest that work.
Lens lensOf(const kernel::Node& cameraShape);

/// The window onto the scene, measured on the near plane.
struct Frustum {
    double left = -1;
    double right = 1;
    double bottom = -1;
    double top = 1;
    double nearPlane = 0.1;
    double farPlane = 10000;
    bool orthographic = false;
    double width() const { return right - left; }
    double height() const { return top - bottom; }
};

/// Film fit against the port's aspect. fill: the port is inside the film gate; overscan: the gate is inside the port.
/// An orthographic camera's width is that of its gate: fill counts as horizontal, overscan as vertical.
Frustum frustumOf(const Lens& lens, int portWidth, int portHeight);

/// What an inch of film back is on the near plane, where the middle of the film gate is the origin.
double unitsPerInch(const Lens& lens);

/// Row vectors, clip space -1..1 in each direction, as OpenGL wants them.
kernel::Matrix4 projectionMatrix(const Frustum& frustum);
/// World to camera for a camera standing at `world`; scale and shear of the camera's transforms have no effect.
kernel::Matrix4 viewMatrix(const kernel::Matrix4& world);

api::ViewMatrices matricesOf(const kernel::Node& cameraShape, int portWidth, int portHeight);

/// A rectangle in port pixels, origin lower left; it may lie outside the port.
struct PortRect {
    double left;
    double bottom;
    double width;
    double height;
};

/// Where a gate of an aspect (width by height) lies in the port: inside the film gate for fill, as wide for horizontal,
/// as high for vertical, around it for overscan; an orthographic camera counts as in frustumOf(). With the aspect of
/// the film it is the film gate itself.
PortRect gateRect(const Lens& lens, int portWidth, int portHeight, double aspect);

/// Inches of film back that one port pixel covers while pan and zoom are on.
double inchesPerPixel(Lens lens, int portWidth, int portHeight);
/// Scene units that one port pixel covers at a distance in front of the camera.
double unitsPerPixel(const Frustum& frustum, int portHeight, double distance);

}  // namespace view
