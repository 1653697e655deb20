#include "view/Meshes.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <map>

using view::Mesh;

namespace {

using Point = std::array<long, 3>;

kernel::Vector3 at(const std::vector<float>& values, unsigned index)
{
    return {values[index * 3], values[index * 3 + 1], values[index * 3 + 2]};
}

/// Positions that differ only by rounding are one point.
Point rounded(const kernel::Vector3& p)
{
    return {std::lround(p.x * 1e4), std::lround(p.y * 1e4), std::lround(p.z * 1e4)};
}

kernel::Vector3 cross(const kernel::Vector3& a, const kernel::Vector3& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

double dot(const kernel::Vector3& a, const kernel::Vector3& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

kernel::Vector3 minus(const kernel::Vector3& a, const kernel::Vector3& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

/// Signed: positive when the triangles are counter-clockwise seen from outside.
double volume(const Mesh& mesh)
{
    double six = 0;
    for (std::size_t i = 0; i < mesh.triangles.size(); i += 3) {
        six += dot(at(mesh.positions, mesh.triangles[i]),
                   cross(at(mesh.positions, mesh.triangles[i + 1]), at(mesh.positions, mesh.triangles[i + 2])));
    }
    return six / 6;
}

void expectClosedAndLitFromOutside(const Mesh& mesh, const char* name)
{
    std::map<std::pair<Point, Point>, int> sides;
    for (std::size_t i = 0; i < mesh.triangles.size(); i += 3) {
        const unsigned* const t = &mesh.triangles[i];
        const kernel::Vector3 a = at(mesh.positions, t[0]), b = at(mesh.positions, t[1]), c = at(mesh.positions, t[2]);
        const kernel::Vector3 facing = cross(minus(b, a), minus(c, a));
        for (int corner = 0; corner < 3; ++corner) {
            const kernel::Vector3 normal = at(mesh.normals, t[corner]);
            EXPECT_NEAR(dot(normal, normal), 1, 1e-5) << name;
            EXPECT_GT(dot(normal, facing), 0) << name << " triangle " << i / 3;
            const Point from = rounded(at(mesh.positions, t[corner]));
            const Point to = rounded(at(mesh.positions, t[(corner + 1) % 3]));
            ++sides[{from, to}];
        }
    }
    for (const auto& side : sides) {
        const auto back = sides.find({side.first.second, side.first.first});
        ASSERT_TRUE(side.second == 1 && back != sides.end() && back->second == 1) << name << " has a hole";
    }
}

}  // namespace

TEST(Meshes, AreClosedFaceOutwardAndHaveTheirSize)
{
    const Mesh box = view::boxMesh(2, 3, 4);
    expectClosedAndLitFromOutside(box, "box");
    EXPECT_NEAR(volume(box), 24, 1e-4);

    const Mesh sphere = view::sphereMesh(2);
    expectClosedAndLitFromOutside(sphere, "sphere");
    EXPECT_NEAR(volume(sphere) / (4.0 / 3 * M_PI * 8), 1, 0.01);

    const Mesh cone = view::coneMesh(1.5, 4);
    expectClosedAndLitFromOutside(cone, "cone");
    EXPECT_NEAR(volume(cone) / (M_PI * 1.5 * 1.5 * 4 / 3), 1, 0.01);
    EXPECT_NEAR(cone.positions[1], -2, 1e-6) << "stands on its base";
}
