#include "view/CameraMath.h"

#include <algorithm>
#include <cmath>

namespace view {

namespace {

constexpr double kMillimetresPerInch = 25.4;
constexpr double kSmallest = 1e-4;

kernel::Vector3 normalised(const double row[4], const kernel::Vector3& fallback)
{
    const double length = std::sqrt(row[0] * row[0] + row[1] * row[1] + row[2] * row[2]);
    return length > 0 ? kernel::Vector3{row[0] / length, row[1] / length, row[2] / length} : fallback;
}

kernel::Vector3 cross(const kernel::Vector3& a, const kernel::Vector3& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double dot(const kernel::Vector3& a, const kernel::Vector3& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

/// A part of the film back, before overscan, on the near plane.
struct Extent {
    double width;
    double height;
};

Extent filmGate(const Lens& lens)
{
    const double width = lens.horizontalAperture * unitsPerInch(lens);
    return {width, width * lens.verticalAperture / lens.horizontalAperture};
}

/// What the port shows of it.
Extent visibleExtent(const Lens& lens, double portAspect)
{
    const double filmAspect = lens.horizontalAperture / lens.verticalAperture;
    const bool portIsNarrower = portAspect < filmAspect;
    bool fitsWidth = true;
    switch (lens.fit) {
    case Lens::Fit::Fill: fitsWidth = lens.orthographic || !portIsNarrower; break;
    case Lens::Fit::Horizontal: break;
    case Lens::Fit::Vertical: fitsWidth = false; break;
    case Lens::Fit::Overscan: fitsWidth = !lens.orthographic && portIsNarrower; break;
    }
    const Extent gate = filmGate(lens);
    return fitsWidth ? Extent{gate.width, gate.width / portAspect} : Extent{gate.height * portAspect, gate.height};
}

/// A gate that stands in the film gate as the film fit says.
Extent gateInFilm(const Lens& lens, double aspect)
{
    const Extent film = filmGate(lens);
    const bool gateIsWider = aspect > film.width / film.height;
    bool sharesWidth = true;
    switch (lens.fit) {
    case Lens::Fit::Fill: sharesWidth = lens.orthographic || gateIsWider; break;
    case Lens::Fit::Horizontal: break;
    case Lens::Fit::Vertical: sharesWidth = false; break;
    case Lens::Fit::Overscan: sharesWidth = !lens.orthographic && !gateIsWider; break;
    }
    return sharesWidth ? Extent{film.width, film.width / aspect} : Extent{film.height * aspect, film.height};
}

}  // namespace

Lens lensOf(const kernel::Node& cameraShape)
{
    Lens lens;
    lens.orthographic = cameraShape.number("orthographic") != 0;
    lens.focalLength = std::max(kSmallest, cameraShape.number("focalLength"));
    lens.horizontalAperture = std::max(kSmallest, cameraShape.number("horizontalFilmAperture"));
    lens.verticalAperture = std::max(kSmallest, cameraShape.number("verticalFilmAperture"));
    const int fit = int(cameraShape.number("filmFit"));
    lens.fit = fit >= 0 && fit <= 3 ? Lens::Fit(fit) : Lens::Fit::Horizontal;
    lens.overscan = std::max(kSmallest, cameraShape.number("overscan"));
    lens.orthographicWidth = std::max(kSmallest, cameraShape.number("orthographicWidth"));
    lens.nearPlane = std::max(kSmallest, cameraShape.number("nearClipPlane"));
    lens.farPlane = std::max(lens.nearPlane * 1.001, cameraShape.number("farClipPlane"));
    lens.panZoom = cameraShape.number("panZoomEnabled") != 0;
    lens.zoom = cameraShape.number("zoom");
    lens.horizontalPan = cameraShape.number("horizontalPan");
    lens.verticalPan = cameraShape.number("verticalPan");
    return lens;
}

double unitsPerInch(const Lens& lens)
{
    // Similar triangles, or, without perspective, the gate's own width.
    return lens.orthographic ? lens.orthographicWidth / lens.horizontalAperture
                             : lens.nearPlane * kMillimetresPerInch / lens.focalLength;
}

Frustum frustumOf(const Lens& lens, int portWidth, int portHeight)
{
    const double aspect = double(std::max(1, portWidth)) / std::max(1, portHeight);
    const Extent extent = visibleExtent(lens, aspect);
    const double zoom = lens.panZoom ? (lens.zoom > 0 ? lens.zoom : 0.001) : 1.0;
    const double panX = lens.panZoom ? lens.horizontalPan : 0.0;
    const double panY = lens.panZoom ? lens.verticalPan : 0.0;
    const double panScale = unitsPerInch(lens);
    const double halfWidth = extent.width * lens.overscan * zoom / 2;
    const double halfHeight = extent.height * lens.overscan * zoom / 2;
    Frustum frustum;
    frustum.left = panX * panScale - halfWidth;
    frustum.right = panX * panScale + halfWidth;
    frustum.bottom = panY * panScale - halfHeight;
    frustum.top = panY * panScale + halfHeight;
    frustum.nearPlane = lens.nearPlane;
    frustum.farPlane = lens.farPlane;
    frustum.orthographic = lens.orthographic;
    return frustum;
}

kernel::Matrix4 projectionMatrix(const Frustum& f)
{
    kernel::Matrix4 p;
    const double depth = f.farPlane - f.nearPlane;
    if (f.orthographic) {
        p.m[0][0] = 2 / f.width();
        p.m[1][1] = 2 / f.height();
        p.m[2][2] = -2 / depth;
        p.m[3][0] = -(f.right + f.left) / f.width();
        p.m[3][1] = -(f.top + f.bottom) / f.height();
        p.m[3][2] = -(f.farPlane + f.nearPlane) / depth;
        return p;
    }
    p.m[0][0] = 2 * f.nearPlane / f.width();
    p.m[1][1] = 2 * f.nearPlane / f.height();
    p.m[2][0] = (f.right + f.left) / f.width();
    p.m[2][1] = (f.top + f.bottom) / f.height();
    p.m[2][2] = -(f.farPlane + f.nearPlane) / depth;
    p.m[2][3] = -1;
    p.m[3][2] = -2 * f.farPlane * f.nearPlane / depth;
    p.m[3][3] = 0;
    return p;
}

kernel::Matrix4 viewMatrix(const kernel::Matrix4& world)
{
    const kernel::Vector3 back = normalised(world.m[2], {0, 0, 1});
    const kernel::Vector3 up = normalised(world.m[1], {0, 1, 0});
    kernel::Vector3 right = cross(up, back);
    const double rightRow[4] = {right.x, right.y, right.z, 0};
    right = normalised(rightRow, {1, 0, 0});
    const kernel::Vector3 trueUp = cross(back, right);
    const kernel::Vector3 eye{world.m[3][0], world.m[3][1], world.m[3][2]};

    const kernel::Vector3 axes[3] = {right, trueUp, back};
    kernel::Matrix4 view;
    for (int column = 0; column < 3; ++column) {
        view.m[0][column] = axes[column].x;
        view.m[1][column] = axes[column].y;
        view.m[2][column] = axes[column].z;
        view.m[3][column] = -dot(axes[column], eye);
    }
    return view;
}

api::ViewMatrices matricesOf(const kernel::Node& cameraShape, int portWidth, int portHeight)
{
    return {viewMatrix(cameraShape.worldMatrix()),
            projectionMatrix(frustumOf(lensOf(cameraShape), portWidth, portHeight))};
}

PortRect gateRect(const Lens& lens, int portWidth, int portHeight, double aspect)
{
    const Frustum window = frustumOf(lens, portWidth, portHeight);
    const double pixels = std::max(1, portWidth) / window.width();  // per unit of the near plane
    const Extent gate = gateInFilm(lens, aspect);
    return {(-gate.width / 2 - window.left) * pixels, (-gate.height / 2 - window.bottom) * pixels, gate.width * pixels,
            gate.height * pixels};
}

double inchesPerPixel(Lens lens, int portWidth, int portHeight)
{
    lens.panZoom = true;
    return frustumOf(lens, portWidth, portHeight).width() / unitsPerInch(lens) / std::max(1, portWidth);
}

double unitsPerPixel(const Frustum& frustum, int portHeight, double distance)
{
    const double onNearPlane = frustum.height() / std::max(1, portHeight);
    return frustum.orthographic ? onNearPlane : onNearPlane * distance / frustum.nearPlane;
}

}  // namespace view
