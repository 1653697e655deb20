#pragma once

#include "api/DrawList.h"
#include "kernel/Scene.h"
#include "view/ImagePlanes.h"

namespace view {

/// What of the scene a view shows, and how.
struct ViewOptions {
    bool grid = true;
    bool objects = true;
    bool moduleShapes = true;  ///< what draw overrides of modules add
    bool headsUp = true;       ///< the camera's name
    bool wireframe = false;
    bool imagePlanes = true;
};

/// The scene itself: background, image planes, surfaces, ground grid. To be used with a context current; the port
/// starts at 0, 0.
class SceneRenderer {
public:
    void draw(const kernel::Scene& scene, const api::FrameState& frame, const ViewOptions& options);
    /// Gives back what it keeps on the GPU.
    void clear() { m_imagePlanes.clear(); }

private:
    void drawBackground() const;
    void drawGrid(const api::FrameState& frame) const;
    void drawShapes(const kernel::Scene& scene, bool wireframe) const;
    void drawShape(kernel::Node& shape, bool selected, bool wireframe) const;

    ImagePlanes m_imagePlanes;
};

}  // namespace view
