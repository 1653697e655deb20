#pragma once

#include <QSize>

#include <memory>

class QOpenGLFramebufferObject;

namespace view {

/// A multisampled buffer to draw a view into, so that edges and lines are smooth. To be used with a context current.
class SmoothTarget {
public:
    SmoothTarget();
    /// To be cleared before.
    ~SmoothTarget();
    /// What is drawn from here on goes into this buffer, until end() puts it, smoothed, into the buffer that was bound.
    /// Where there is no multisampling everything goes there at once.
    void begin(const QSize& size);
    void end();
    /// Gives the buffer back.
    void clear();

private:
    std::unique_ptr<QOpenGLFramebufferObject> m_buffer;
    unsigned m_bound = 0;  ///< between begin() and end(): where the picture is to go
};

}  // namespace view
