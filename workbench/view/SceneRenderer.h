#pragma once

#include "api/DrawList.h"
#include "kernel/Scene.h"

namespace view {

/// The scene itself: background, ground grid, primitives. To be used with a context current; the port starts at 0, 0.
class SceneRenderer {
public:
    void draw(const kernel::Scene& scene, const api::FrameState& frame) const;

private:
    void drawBackground() const;
    void drawGrid(const api::FrameState& frame) const;
    void drawShapes(const kernel::Scene& scene) const;
    void drawShape(kernel::Node& shape, bool selected) const;
};

}  // namespace view
