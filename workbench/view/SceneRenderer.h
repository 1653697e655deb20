#pragma once

#include "api/DrawList.h"
#include "kernel/Scene.h"

namespace view {

/// What of the scene a view shows, and how.
struct ViewOptions {
    bool grid = true;
    bool objects = true;
    bool moduleShapes = true;  ///< what draw overrides of modules add
    bool headsUp = true;       ///< the camera's name
    bool wireframe = false;
};

/// The scene itself: background, ground grid, primitives. To be used with a context current; the port starts at 0, 0.
class SceneRenderer {
public:
    void draw(const kernel::Scene& scene, const api::FrameState& frame, const ViewOptions& options) const;

private:
    void drawBackground() const;
    void drawGrid(const api::FrameState& frame) const;
    void drawShapes(const kernel::Scene& scene, bool wireframe) const;
    void drawShape(kernel::Node& shape, bool selected, bool wireframe) const;
};

}  // namespace view
