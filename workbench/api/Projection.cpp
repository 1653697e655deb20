#include "api/Projection.h"

#include <cmath>

namespace api {

namespace {

struct Homogeneous {
    double v[4];
};

/// A row vector times a matrix, without dividing.
Homogeneous times(const Homogeneous& p, const kernel::Matrix4& m)
{
    Homogeneous result{};
    for (int column = 0; column < 4; ++column) {
        for (int row = 0; row < 4; ++row)
            result.v[column] += p.v[row] * m.m[row][column];
    }
    return result;
}

kernel::Vector3 unprojected(double x, double y, double z, const kernel::Matrix4& clipToWorld)
{
    const Homogeneous p = times({{x, y, z, 1}}, clipToWorld);
    return {p.v[0] / p.v[3], p.v[1] / p.v[3], p.v[2] / p.v[3]};
}

}  // namespace

PortPoint projectToPort(const kernel::Vector3& world, const ViewMatrices& matrices, int width, int height)
{
    const Homogeneous clip = times({{world.x, world.y, world.z, 1}}, matrices.view * matrices.projection);
    PortPoint result;
    const double w = clip.v[3];
    if (w == 0)
        return result;
    result.isDefined = true;
    result.x = (clip.v[0] / w + 1) * 0.5 * width;
    result.y = (clip.v[1] / w + 1) * 0.5 * height;
    result.isInside = w > 0 && std::fabs(clip.v[0]) <= w && std::fabs(clip.v[1]) <= w && std::fabs(clip.v[2]) <= w;
    return result;
}

kernel::Vector3 PortRay::direction() const
{
    const kernel::Vector3 d{farPoint.x - nearPoint.x, farPoint.y - nearPoint.y, farPoint.z - nearPoint.z};
    const double length = std::sqrt(d.x * d.x + d.y * d.y + d.z * d.z);
    return length > 0 ? kernel::Vector3{d.x / length, d.y / length, d.z / length} : d;
}

PortRay rayThroughPort(double x, double y, const ViewMatrices& matrices, int width, int height)
{
    const kernel::Matrix4 clipToWorld = kernel::inverse(matrices.view * matrices.projection);
    const double clipX = width > 0 ? 2 * x / width - 1 : 0;
    const double clipY = height > 0 ? 2 * y / height - 1 : 0;
    return {unprojected(clipX, clipY, -1, clipToWorld), unprojected(clipX, clipY, 1, clipToWorld)};
}

}  // namespace api
