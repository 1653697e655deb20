#pragma once

#include "kernel/Node.h"

#include <QColor>

namespace view {

/// Matrix stacks set for a while. Our matrices lie in memory as OpenGL's do: rows of row vectors are columns of
/// column vectors.
class GlMatrices {
public:
    GlMatrices(const kernel::Matrix4& modelView, const kernel::Matrix4& projection);
    ~GlMatrices();
    GlMatrices(const GlMatrices&) = delete;
    GlMatrices& operator=(const GlMatrices&) = delete;
};

/// Port pixels, origin lower left.
kernel::Matrix4 pixelProjection(int width, int height);

void setGlColour(const QColor& colour);

/// The buffer that is drawn into.
unsigned boundFramebuffer();
void bindFramebuffer(unsigned name);
/// Whether the processor draws, for want of graphics hardware. With a context current.
bool isSoftwareRenderer();

}  // namespace view
