#pragma once

#include "kernel/MeshData.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kernel {

/// One object of a file of polygons.
struct ObjObject {
    std::string name;  ///< empty for what stands before the first name
    std::shared_ptr<MeshData> mesh;
};

/// Reads the polygons of a text in the Wavefront format: points (`v`), faces (`f`) of any size with indices counted
/// from the start or, negative, from the last point, an object for each `o`; lines may be continued with a backslash.
/// Edges are smooth where the faces at them are: by their smoothing group (`s`), in texts without any by their corners
/// having normals of their own. Groups, materials, curves and whatever else there is are passed over. Objects without a
/// face are left out. Throws CommandError, which names the line, for a line that cannot be read.
std::vector<ObjObject> readObj(std::string_view text);

}  // namespace kernel
