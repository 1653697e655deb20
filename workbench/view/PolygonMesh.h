#pragma once

#include "kernel/MeshData.h"
#include "view/Meshes.h"

namespace view {

/// The triangles, normals and edges that show a surface of polygons. Each corner of a face has a position of its own;
/// its normal is the face's, or the mean of those around the point that smooth edges join to it. A face that is not
/// convex is divided by cutting off ears; one that crosses itself comes out as some fan.
Mesh polygonMesh(const kernel::MeshData& data);

}  // namespace view
