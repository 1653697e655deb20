#include "view/Bounds.h"

#include "view/Meshes.h"

#include <algorithm>

namespace view {

namespace {

constexpr double kPlaceReach = 1;  // of a node without a surface, to every side

void include(std::optional<Box>& box, const kernel::Vector3& point)
{
    if (!box) {
        box = Box{point, point};
    }
    box->low = {std::min(box->low.x, point.x), std::min(box->low.y, point.y), std::min(box->low.z, point.z)};
    box->high = {std::max(box->high.x, point.x), std::max(box->high.y, point.y), std::max(box->high.z, point.z)};
}

void include(std::optional<Box>& box, const std::optional<Box>& other)
{
    if (other) {
        include(box, other->low);
        include(box, other->high);
    }
}

std::optional<Box> surfaceBox(const kernel::Node& node, const kernel::Matrix4& fromWorld)
{
    std::optional<Box> box;
    if (!node.isVisible()) {
        return box;
    }
    if (const std::shared_ptr<const Mesh> mesh = meshOf(node)) {
        const kernel::Matrix4 matrix = node.worldMatrix() * fromWorld;
        for (std::size_t i = 0; i + 2 < mesh->positions.size(); i += 3) {
            const float* const p = &mesh->positions[i];
            include(box, kernel::transformPoint({p[0], p[1], p[2]}, matrix));
        }
    }
    for (const kernel::NodePtr& child : node.children()) {
        include(box, surfaceBox(*child, fromWorld));
    }
    return box;
}

Box placeBox(const kernel::Node& node, const kernel::Matrix4& fromWorld)
{
    const kernel::Vector3 place = kernel::transformPoint({}, node.worldMatrix() * fromWorld);
    return {{place.x - kPlaceReach, place.y - kPlaceReach, place.z - kPlaceReach},
            {place.x + kPlaceReach, place.y + kPlaceReach, place.z + kPlaceReach}};
}

}  // namespace

kernel::Vector3 Box::centre() const
{
    return {(low.x + high.x) / 2, (low.y + high.y) / 2, (low.z + high.z) / 2};
}

std::array<kernel::Vector3, 8> Box::corners() const
{
    std::array<kernel::Vector3, 8> corners;
    for (unsigned i = 0; i < corners.size(); ++i) {
        corners[i] = {i & 1 ? high.x : low.x, i & 2 ? high.y : low.y, i & 4 ? high.z : low.z};
    }
    return corners;
}

std::optional<Box> boxAround(const std::vector<kernel::NodePtr>& nodes, const kernel::Matrix4& fromWorld,
                             bool withPlaces)
{
    std::optional<Box> box;
    for (const kernel::NodePtr& node : nodes) {
        const std::optional<Box> surface = surfaceBox(*node, fromWorld);
        include(box, !surface && withPlaces ? placeBox(*node, fromWorld) : surface);
    }
    return box;
}

}  // namespace view
