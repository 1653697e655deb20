#pragma once

#include "kernel/Node.h"

#include <optional>
#include <vector>

namespace view {

/// A closed surface: counter-clockwise triangles seen from outside, one unit normal per position, and the edges that
/// make a good wireframe (pairs of indices). Positions and normals are x, y, z in a row.
struct Mesh {
    std::vector<float> positions;
    std::vector<float> normals;
    std::vector<unsigned> triangles;
    std::vector<unsigned> edges;
};

Mesh boxMesh(double sizeX, double sizeY, double sizeZ);  ///< centred on the origin
Mesh sphereMesh(double radius);
/// Standing on its base: centre of the base at y = -height / 2.
Mesh coneMesh(double radius, double height);

/// The surface of a primitive's shape node in its own space; none for other nodes.
std::optional<Mesh> meshOf(const kernel::Node& shape);

}  // namespace view
