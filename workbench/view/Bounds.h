#pragma once

#include "kernel/Node.h"

#include <array>
#include <optional>
#include <vector>

namespace view {

/// A box along the axes of some space.
struct Box {
    kernel::Vector3 low;
    kernel::Vector3 high;

    kernel::Vector3 centre() const;
    std::array<kernel::Vector3, 8> corners() const;
};

/// The box around the visible surfaces at and below the nodes, in the space that `fromWorld` leads to. Nodes that have
/// none count as a small box about their own place when `withPlaces` is set. None when nothing counts.
std::optional<Box> boxAround(const std::vector<kernel::NodePtr>& nodes, const kernel::Matrix4& fromWorld,
                             bool withPlaces);

}  // namespace view
