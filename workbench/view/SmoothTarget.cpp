#include "view/SmoothTarget.h"

#include "view/GlState.h"

#include <QOpenGLContext>
#include <QOpenGLExtraFunctions>
#include <QOpenGLFramebufferObject>

namespace view {

namespace {

constexpr int kSamples = 4;

}  // namespace

SmoothTarget::SmoothTarget() = default;
SmoothTarget::~SmoothTarget() = default;

void SmoothTarget::begin(const QSize& size)
{
    m_bound = boundFramebuffer();
    if (!m_buffer || m_buffer->size() != size) {
        QOpenGLFramebufferObjectFormat format;
        format.setAttachment(QOpenGLFramebufferObject::Depth);
        format.setInternalTextureFormat(GL_RGBA8);
        format.setSamples(kSamples);
        m_buffer = std::make_unique<QOpenGLFramebufferObject>(size, format);
    }
    const bool isSmooth = m_buffer->isValid() && m_buffer->format().samples() > 0;
    bindFramebuffer(isSmooth ? m_buffer->handle() : m_bound);
}

void SmoothTarget::end()
{
    if (boundFramebuffer() == m_bound) {
        return;
    }
    QOpenGLExtraFunctions& gl = *QOpenGLContext::currentContext()->extraFunctions();
    const int width = m_buffer->width(), height = m_buffer->height();
    gl.glBindFramebuffer(GL_DRAW_FRAMEBUFFER, m_bound);
    gl.glBlitFramebuffer(0, 0, width, height, 0, 0, width, height, GL_COLOR_BUFFER_BIT, GL_NEAREST);
    bindFramebuffer(m_bound);
}

void SmoothTarget::clear()
{
    m_buffer.reset();
}

}  // namespace view
