#include "view/PolygonMesh.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <numeric>
#include <utility>

namespace view {

namespace {

using kernel::MeshData;
using kernel::Vector3;
using Corners = std::vector<int>;  ///< places among the points

struct Point2 {
    double x;
    double y;
};

Vector3 sum(const Vector3& a, const Vector3& b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

Vector3 unit(const Vector3& v)
{
    const double length = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
    return length > 0 ? Vector3{v.x / length, v.y / length, v.z / length} : Vector3{0, 1, 0};
}

/// Newell's normal: right for faces that are not convex and not quite flat, too. As long as twice the face's area.
Vector3 faceNormal(const std::vector<Vector3>& points, const Corners& corners)
{
    Vector3 normal;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Vector3& a = points[std::size_t(corners[i])];
        const Vector3& b = points[std::size_t(corners[(i + 1) % corners.size()])];
        normal.x += (a.y - b.y) * (a.z + b.z);
        normal.y += (a.z - b.z) * (a.x + b.x);
        normal.z += (a.x - b.x) * (a.y + b.y);
    }
    return normal;
}

/// The corners seen along the axis the face looks along most, so that they go round counter-clockwise.
std::vector<Point2> flattened(const std::vector<Vector3>& points, const Corners& corners, const Vector3& normal)
{
    const double x = std::abs(normal.x), y = std::abs(normal.y), z = std::abs(normal.z);
    std::vector<Point2> flat;
    flat.reserve(corners.size());
    for (const int corner : corners) {
        const Vector3& p = points[std::size_t(corner)];
        Point2 seen = z >= x && z >= y ? Point2{p.x, p.y} : x >= y ? Point2{p.y, p.z} : Point2{p.z, p.x};
        const double facing = z >= x && z >= y ? normal.z : x >= y ? normal.x : normal.y;
        seen.x = facing < 0 ? -seen.x : seen.x;
        flat.push_back(seen);
    }
    return flat;
}

/// Twice the area, positive when the three go round counter-clockwise.
double turn(const Point2& a, const Point2& b, const Point2& c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

bool isSame(const Point2& a, const Point2& b)
{
    return a.x == b.x && a.y == b.y;
}

/// Cuts a polygon into triangles by its ears: corners whose triangle lies inside and holds no other corner,
/// on its sides either.
class EarCutter {
public:
    explicit EarCutter(std::vector<Point2> corners) : m_corners(std::move(corners)), m_left(m_corners.size())
    {
        std::iota(m_left.begin(), m_left.end(), 0u);
    }

    /// Places among the corners, three a triangle.
    std::vector<unsigned> triangles()
    {
        std::vector<unsigned> triangles;
        while (m_left.size() > 3) {
            const std::size_t ear = nextEar();
            append(triangles, ear);
            m_left.erase(m_left.begin() + std::ptrdiff_t(ear));
            m_searchFrom = ear;
        }
        append(triangles, 1);
        return triangles;
    }

private:
    unsigned left(std::size_t i) const { return m_left[i % m_left.size()]; }
    void append(std::vector<unsigned>& triangles, std::size_t ear) const
    {
        triangles.insert(triangles.end(), {left(ear + m_left.size() - 1), left(ear), left(ear + 1)});
    }

    /// Some corner when there is no ear, as in a polygon that crosses itself.
    std::size_t nextEar() const
    {
        for (std::size_t i = 0; i < m_left.size(); ++i) {
            const std::size_t corner = (m_searchFrom + i) % m_left.size();
            if (isEar(corner))
                return corner;
        }
        return m_searchFrom % m_left.size();
    }

    bool isEar(std::size_t corner) const
    {
        const unsigned before = left(corner + m_left.size() - 1), at = left(corner), after = left(corner + 1);
        const Point2 &a = m_corners[before], &b = m_corners[at], &c = m_corners[after];
        if (turn(a, b, c) <= 0)
            return false;
        return std::none_of(m_left.begin(), m_left.end(), [&](unsigned other) {
            const Point2& p = m_corners[other];
            const bool isCorner = isSame(p, a) || isSame(p, b) || isSame(p, c);
            return !isCorner && turn(a, b, p) >= 0 && turn(b, c, p) >= 0 && turn(c, a, p) >= 0;
        });
    }

    const std::vector<Point2> m_corners;
    std::vector<unsigned> m_left;
    std::size_t m_searchFrom = 0;
};

/// The normals of the corners of all faces, one after the other. Corners at one point share a normal when smooth edges
/// join their faces, one after the other, around the point.
class CornerNormals {
public:
    explicit CornerNormals(const MeshData& data) : m_data(data)
    {
        for (const MeshData::Face& face : data.faces) {
            const Vector3 normal = faceNormal(data.points, data.corners(face));
            m_normals.insert(m_normals.end(), face.size(), normal);
        }
        m_joinedTo.resize(m_normals.size());
        std::iota(m_joinedTo.begin(), m_joinedTo.end(), std::size_t(0));
    }

    std::vector<Vector3> normals()
    {
        joinAcrossSmoothEdges();
        std::vector<Vector3> sums(m_normals.size());
        for (std::size_t i = 0; i < m_normals.size(); ++i)
            sums[groupOf(i)] = sum(sums[groupOf(i)], m_normals[i]);
        for (std::size_t i = 0; i < m_normals.size(); ++i)
            m_normals[i] = unit(sums[groupOf(i)]);
        return std::move(m_normals);
    }

private:
    void joinAcrossSmoothEdges()
    {
        std::map<std::pair<int, int>, std::size_t> atEdge;  // edge and point: a corner of the face met first
        std::size_t first = 0;
        for (const MeshData::Face& face : m_data.faces) {
            const Corners corners = m_data.corners(face);
            for (std::size_t i = 0; i < face.size(); ++i) {
                const int edge = face[i] >= 0 ? face[i] : -(face[i] + 1);
                if (!m_data.edges[std::size_t(edge)].isSmooth)
                    continue;
                for (const std::size_t corner : {i, (i + 1) % face.size()}) {
                    const auto met = atEdge.emplace(std::make_pair(edge, corners[corner]), first + corner);
                    m_joinedTo[groupOf(first + corner)] = groupOf(met.first->second);
                }
            }
            first += face.size();
        }
    }

    std::size_t groupOf(std::size_t corner)
    {
        while (m_joinedTo[corner] != corner) {
            m_joinedTo[corner] = m_joinedTo[m_joinedTo[corner]];
            corner = m_joinedTo[corner];
        }
        return corner;
    }

    const MeshData& m_data;
    std::vector<Vector3> m_normals;
    std::vector<std::size_t> m_joinedTo;
};

void addCoordinates(std::vector<float>& values, const Vector3& v)
{
    values.insert(values.end(), {float(v.x), float(v.y), float(v.z)});
}

}  // namespace

Mesh polygonMesh(const MeshData& data)
{
    Mesh mesh;
    mesh.isOpen = true;
    std::vector<bool> isDrawn(data.edges.size());
    for (const MeshData::Face& face : data.faces) {
        const Corners corners = data.corners(face);
        const auto first = unsigned(mesh.positions.size() / 3);
        for (const int corner : corners)
            addCoordinates(mesh.positions, data.points[std::size_t(corner)]);
        for (const unsigned corner :
             EarCutter(flattened(data.points, corners, faceNormal(data.points, corners))).triangles())
            mesh.triangles.push_back(first + corner);
        for (unsigned i = 0; i < face.size(); ++i) {
            const int edge = face[i] >= 0 ? face[i] : -(face[i] + 1);
            if (!isDrawn[std::size_t(edge)])
                mesh.edges.insert(mesh.edges.end(), {first + i, first + (i + 1) % unsigned(face.size())});
            isDrawn[std::size_t(edge)] = true;
        }
    }
    for (const Vector3& normal : CornerNormals(data).normals())
        addCoordinates(mesh.normals, normal);
    return mesh;
}

}  // namespace view
