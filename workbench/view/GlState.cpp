#include "view/GlState.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>

#include <algorithm>
#include <cstring>
#include <iterator>

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

unsigned boundFramebuffer()
{
    int name = 0;
    glGetIntegerv(GL_FRAMEBUFFER_BINDING, &name);
    return unsigned(name);
}

void bindFramebuffer(unsigned name)
{
    QOpenGLContext::currentContext()->functions()->glBindFramebuffer(GL_FRAMEBUFFER, name);
}

bool isSoftwareRenderer()
{
    const auto* const renderer = reinterpret_cast<const char*>(glGetString(GL_RENDERER));
    const char* const software[] = {"llvmpipe", "softpipe", "swrast", "SWR", "Software Rasterizer", "GDI Generic"};
    return renderer && std::any_of(std::begin(software), std::end(software), [renderer](const char* name) {
               return std::strstr(renderer, name) != nullptr;
           });
}

}  // namespace view
