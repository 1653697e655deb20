#include "view/PolygonMesh.h"

#include "kernel/ObjFile.h"

#include <gtest/gtest.h>

#include <cmath>

using view::Mesh;

namespace {

std::shared_ptr<const kernel::MeshData> dataOf(const std::string& obj)
{
    return kernel::readObj(obj).at(0).mesh;
}

kernel::Vector3 at(const std::vector<float>& values, unsigned index)
{
    return {values[index * 3], values[index * 3 + 1], values[index * 3 + 2]};
}

/// The area along an axis of all triangles together; those that look the other way count against it.
kernel::Vector3 area(const Mesh& mesh)
{
    kernel::Vector3 sum;
    for (std::size_t i = 0; i < mesh.triangles.size(); i += 3) {
        const auto corner = [&](std::size_t c) { return at(mesh.positions, mesh.triangles[i + c]); };
        const kernel::Vector3 a = corner(0), b = corner(1), c = corner(2);
        sum.x += ((b.y - a.y) * (c.z - a.z) - (b.z - a.z) * (c.y - a.y)) / 2;
        sum.y += ((b.z - a.z) * (c.x - a.x) - (b.x - a.x) * (c.z - a.z)) / 2;
        sum.z += ((b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x)) / 2;
    }
    return sum;
}

/// The sum of the sizes of all triangles, however they look.
double coveredArea(const Mesh& mesh)
{
    double sum = 0;
    for (std::size_t i = 0; i < mesh.triangles.size(); i += 3) {
        Mesh one = mesh;
        one.triangles = {mesh.triangles[i], mesh.triangles[i + 1], mesh.triangles[i + 2]};
        const kernel::Vector3 v = area(one);
        sum += std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
    }
    return sum;
}

/// An L of three unit squares that looks along +z, in the plane of the first two axes of `order`.
std::string ell(const char* order)
{
    const int points[6][2] = {{0, 0}, {2, 0}, {2, 1}, {1, 1}, {1, 2}, {0, 2}};
    std::string text;
    for (const auto& p : points) {
        text += "v";
        for (const char* axis = order; *axis; ++axis) {
            text += *axis == '0' ? " 0" : " " + std::to_string(p[*axis == 'a' ? 0 : 1]);
        }
        text += "\n";
    }
    return text + "f 1 2 3 4 5 6\n";
}

}  // namespace

TEST(PolygonMesh, FacesThatAreNotConvexAreCoveredOnce)
{
    const struct {
        const char* order;
        kernel::Vector3 area;
    } cases[] = {
        {"ab0", {0, 0, 3}},  {"ba0", {0, 0, -3}}, {"0ab", {3, 0, 0}},
        {"0ba", {-3, 0, 0}}, {"b0a", {0, 3, 0}},  {"a0b", {0, -3, 0}},
    };
    for (const auto& c : cases) {
        const Mesh mesh = view::polygonMesh(*dataOf(ell(c.order)));
        EXPECT_EQ(mesh.triangles.size(), 12u) << c.order;
        EXPECT_EQ(area(mesh), c.area) << c.order;
        EXPECT_NEAR(coveredArea(mesh), 3, 1e-6) << c.order;
        EXPECT_EQ(mesh.edges.size(), 12u) << c.order << ": the outline, no diagonals";
    }
}

TEST(PolygonMesh, FacesWithoutAreaOrThatCrossThemselvesGiveSomeTriangles)
{
    for (const char* const text :
         {"v 0 0 0\nv 0 0 0\nv 0 0 0\nf 1 2 3\n", "v 0 0 0\nv 1 1 0\nv 1 0 0\nv 0 1 0\nf 1 2 3 4\n",
          "v 0 0 0\nv 1 0 0\nv 2 0 0\nv 3 0 0\nf 1 2 3 4\n", "v 0 0 0\nv 1 0 0\nv 1 1 0\nf 1 2 2 3 3 1\n"}) {
        const Mesh mesh = view::polygonMesh(*dataOf(text));
        EXPECT_EQ(mesh.triangles.size() % 3, 0u) << text;
        EXPECT_FALSE(mesh.triangles.empty()) << text;
        for (const float number : mesh.normals) {
            EXPECT_TRUE(std::isfinite(number)) << text;
        }
    }
}

TEST(PolygonMesh, NormalsAreSharedAcrossSmoothEdgesOnly)
{
    // A ridge along x: two slopes that meet at a right angle.
    const std::string ridge = "v 0 1 0\nv 1 1 0\nv 1 0 1\nv 0 0 1\nv 1 0 -1\nv 0 0 -1\n";
    const std::string slopes = "f 1 4 3 2\nf 2 5 6 1\n";
    const Mesh hard = view::polygonMesh(*dataOf(ridge + slopes));
    const Mesh smooth = view::polygonMesh(*dataOf(ridge + "s 1\n" + slopes));
    const double slant = std::sqrt(0.5);
    EXPECT_NEAR(at(hard.normals, 0).y, slant, 1e-6);
    EXPECT_NEAR(at(hard.normals, 0).z, slant, 1e-6);
    EXPECT_NEAR(at(smooth.normals, 0).y, 1, 1e-6) << "at the ridge";
    EXPECT_NEAR(at(smooth.normals, 1).y, slant, 1e-6) << "at the foot";
    EXPECT_EQ(smooth.edges.size(), 14u) << "an edge between faces is drawn once";
}
