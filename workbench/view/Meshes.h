#pragma once

#include "kernel/Node.h"

#include <memory>
#include <vector>

namespace view {

/// A surface: counter-clockwise triangles seen from outside, one unit normal per position, and the edges that make a
/// good wireframe (pairs of indices). Positions and normals are x, y, z in a row.
struct Mesh {
    std::vector<float> positions;
    std::vector<float> normals;
    std::vector<unsigned> triangles;
    std::vector<unsigned> edges;
    bool isOpen = false;  ///< its inside may be seen
};

Mesh boxMesh(double sizeX, double sizeY, double sizeZ);  ///< centred on the origin
Mesh sphereMesh(double radius);
/// Standing on its base: centre of the base at y = -height / 2.
Mesh coneMesh(double radius, double height);

/// The surface of a primitive's or a mesh's shape node in its own space; null for other nodes. That of a mesh is kept
/// as long as the node has the same data.
std::shared_ptr<const Mesh> meshOf(const kernel::Node& shape);

}  // namespace view
