#include "view/GlState.h"

#include <QOpenGLFunctions>

#include <algorithm>

namespace view {

GlMatrices::GlMatrices(const kernel::Matrix4& modelView, const kernel::Matrix4& projection)
{
    glMatrixMode(GL_PROJECTION);
    glPushMatrix();
    glLoadMatrixd(&projection.m[0][0]);
    glMatrixMode(GL_MODELVIEW);
    glPushMatrix();
    glLoadMatrixd(&modelView.m[0][0]);
}

GlMatrices::~GlMatrices()
{
    glMatrixMode(GL_PROJECTION);
    glPopMatrix();
    glMatrixMode(GL_MODELVIEW);
    glPopMatrix();
}

kernel::Matrix4 pixelProjection(int width, int height)
{
    kernel::Matrix4 p;
    p.m[0][0] = 2.0 / std::max(1, width);
    p.m[1][1] = 2.0 / std::max(1, height);
    p.m[3][0] = -1;
    p.m[3][1] = -1;
    return p;
}

void setGlColour(const QColor& colour)
{
    glColor4d(colour.redF(), colour.greenF(), colour.blueF(), colour.alphaF());
}

}  // namespace view
