#include "view/Meshes.h"

#include "kernel/MeshData.h"
#include "view/PolygonMesh.h"

#include <cmath>
#include <iterator>
#include <map>
#include <utility>

namespace view {

namespace {

constexpr int kSegments = 96;  // around a circle
constexpr int kRings = 32;     // from pole to pole

unsigned add(Mesh& mesh, const kernel::Vector3& position, const kernel::Vector3& normal)
{
    mesh.positions.insert(mesh.positions.end(), {float(position.x), float(position.y), float(position.z)});
    mesh.normals.insert(mesh.normals.end(), {float(normal.x), float(normal.y), float(normal.z)});
    return unsigned(mesh.positions.size() / 3 - 1);
}

void addTriangle(Mesh& mesh, unsigned a, unsigned b, unsigned c)
{
    mesh.triangles.insert(mesh.triangles.end(), {a, b, c});
}

void addEdge(Mesh& mesh, unsigned a, unsigned b)
{
    mesh.edges.insert(mesh.edges.end(), {a, b});
}

double turn(int segment)
{
    return 2 * M_PI * segment / kSegments;
}

std::shared_ptr<const Mesh> shared(Mesh mesh)
{
    return std::make_shared<const Mesh>(std::move(mesh));
}

/// What was made of data that still lives.
std::shared_ptr<const Mesh> keptMesh(const std::shared_ptr<const kernel::MeshData>& data)
{
    struct Kept {
        std::weak_ptr<const kernel::MeshData> data;
        std::shared_ptr<const Mesh> mesh;
    };
    static std::map<const kernel::MeshData*, Kept> s_kept;
    const auto found = s_kept.find(data.get());
    if (found != s_kept.end() && !found->second.data.expired()) {
        return found->second.mesh;
    }
    for (auto it = s_kept.begin(); it != s_kept.end();) {
        it = it->second.data.expired() ? s_kept.erase(it) : std::next(it);
    }
    return s_kept.emplace(data.get(), Kept{data, shared(polygonMesh(*data))}).first->second.mesh;
}

}  // namespace

Mesh boxMesh(double sizeX, double sizeY, double sizeZ)
{
    // A face is its normal and the two axes that span it, in a right-handed order.
    const struct {
        kernel::Vector3 normal, right, up;
    } faces[] = {
        {{1, 0, 0}, {0, 0, -1}, {0, 1, 0}}, {{-1, 0, 0}, {0, 0, 1}, {0, 1, 0}}, {{0, 1, 0}, {1, 0, 0}, {0, 0, -1}},
        {{0, -1, 0}, {1, 0, 0}, {0, 0, 1}}, {{0, 0, 1}, {1, 0, 0}, {0, 1, 0}},  {{0, 0, -1}, {-1, 0, 0}, {0, 1, 0}},
    };
    const int corners[4][2] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
    Mesh mesh;
    for (const auto& face : faces) {
        unsigned first = 0;
        for (int i = 0; i < 4; ++i) {
            const double r = corners[i][0], u = corners[i][1];
            const unsigned index = add(mesh,
                                       {(face.normal.x + face.right.x * r + face.up.x * u) * sizeX / 2,
                                        (face.normal.y + face.right.y * r + face.up.y * u) * sizeY / 2,
                                        (face.normal.z + face.right.z * r + face.up.z * u) * sizeZ / 2},
                                       face.normal);
            first = i == 0 ? index : first;
        }
        addTriangle(mesh, first, first + 1, first + 2);
        addTriangle(mesh, first, first + 2, first + 3);
        for (unsigned i = 0; i < 4; ++i) {
            addEdge(mesh, first + i, first + (i + 1) % 4);
        }
    }
    return mesh;
}

Mesh sphereMesh(double radius)
{
    Mesh mesh;
    for (int ring = 0; ring <= kRings; ++ring) {
        const double polar = M_PI * ring / kRings;
        for (int segment = 0; segment <= kSegments; ++segment) {
            const kernel::Vector3 n{std::sin(polar) * std::sin(turn(segment)), std::cos(polar),
                                    std::sin(polar) * std::cos(turn(segment))};
            add(mesh, {n.x * radius, n.y * radius, n.z * radius}, n);
        }
    }
    const unsigned row = kSegments + 1;
    for (unsigned ring = 0; ring < kRings; ++ring) {
        for (unsigned segment = 0; segment < kSegments; ++segment) {
            const unsigned a = ring * row + segment;
            if (ring > 0) {
                addTriangle(mesh, a, a + row, a + 1);
            }
            if (ring < kRings - 1) {
                addTriangle(mesh, a + 1, a + row, a + row + 1);
            }
            if (ring == kRings / 2) {
                addEdge(mesh, a, a + 1);
            }
            if (segment % (kSegments / 4) == 0) {
                addEdge(mesh, a, a + row);
            }
        }
    }
    return mesh;
}

Mesh coneMesh(double radius, double height)
{
    Mesh mesh;
    const double slope = std::hypot(radius, height);
    const double outward = slope > 0 ? height / slope : 1;
    const double upward = slope > 0 ? radius / slope : 0;
    const unsigned centre = add(mesh, {0, -height / 2, 0}, {0, -1, 0});
    for (int segment = 0; segment < kSegments; ++segment) {
        const double s0 = std::sin(turn(segment)), c0 = std::cos(turn(segment));
        const double s1 = std::sin(turn(segment + 1)), c1 = std::cos(turn(segment + 1));
        const double middle = turn(segment) + M_PI / kSegments;
        const kernel::Vector3 rim0{s0 * radius, -height / 2, c0 * radius};
        const kernel::Vector3 rim1{s1 * radius, -height / 2, c1 * radius};
        const unsigned a = add(mesh, rim0, {s0 * outward, upward, c0 * outward});
        const unsigned b = add(mesh, rim1, {s1 * outward, upward, c1 * outward});
        // Each side has a tip of its own: the surface has no normal there.
        const unsigned tip =
            add(mesh, {0, height / 2, 0}, {std::sin(middle) * outward, upward, std::cos(middle) * outward});
        addTriangle(mesh, a, b, tip);
        const unsigned under0 = add(mesh, rim0, {0, -1, 0});
        const unsigned under1 = add(mesh, rim1, {0, -1, 0});
        addTriangle(mesh, centre, under1, under0);
        addEdge(mesh, a, b);
        if (segment % (kSegments / 4) == 0) {
            addEdge(mesh, a, tip);
        }
    }
    return mesh;
}

std::shared_ptr<const Mesh> meshOf(const kernel::Node& shape)
{
    const std::string& type = shape.typeName();
    if (type == "implicitBox") {
        return shared(boxMesh(shape.number("sizeX"), shape.number("sizeY"), shape.number("sizeZ")));
    }
    if (type == "implicitSphere") {
        return shared(sphereMesh(shape.number("radius")));
    }
    if (type == "implicitCone") {
        return shared(coneMesh(shape.number("radius"), shape.number("height")));
    }
    const std::shared_ptr<const kernel::MeshData> data = kernel::meshDataOf(shape);
    return data ? keptMesh(data) : nullptr;
}

}  // namespace view
