#pragma once

#include "api/DrawList.h"
#include "kernel/Scene.h"
#include "view/GlText.h"

namespace view {

/// Draws over a picture what of it the film and the render take in, as far as the camera's attributes ask for it: the
/// gates, what lies outside of them dimmed, the areas that every screen shows, the size of the render.
/// To be used with a context current; the port starts at 0, 0. scale: port pixels of a pixel of the user's.
void drawGates(const kernel::Scene& scene, const api::FrameState& frame, GlText& text, double scale);

}  // namespace view
