#pragma once

#include "model/CoverageLoops.h"

#include <QImage>

#include <algorithm>
#include <limits>

/// The alpha bytes of an RGBA8888 image, which is borrowed, and a note of which of them were written.
class AlphaCanvas {
public:
    explicit AlphaCanvas(QImage& image)
        : m_pixels(reinterpret_cast<quint32*>(image.bits())), m_stride(image.bytesPerLine() / 4), m_size(image.size())
    {}

    const QSize& size() const { return m_size; }
    int width() const { return m_size.width(); }
    int height() const { return m_size.height(); }
    /// Box of the pixels written, null when there are none.
    QRect touched() const { return m_right < 0 ? QRect() : QRect(QPoint(m_left, m_top), QPoint(m_right, m_bottom)); }

    bool contains(const QPoint& pixel) const
    {
        return pixel.x() >= 0 && pixel.y() >= 0 && pixel.x() < m_size.width() && pixel.y() < m_size.height();
    }
    /// Of a pixel on the canvas. Is not noted.
    uchar& alpha(const QPoint& pixel)
    {
        constexpr int kAlpha = 3;  // of the four bytes of a pixel
        return reinterpret_cast<uchar*>(m_pixels + pixel.y() * m_stride + pixel.x())[kAlpha];
    }
    void raise(const QPoint& pixel, uchar alpha)
    {
        if (alpha != 0 && contains(pixel)) {
            uchar& byte = this->alpha(pixel);
            byte = std::max(byte, alpha);
            touch(pixel.x(), pixel.y(), pixel.x(), pixel.y());
        }
    }

    /// Merges rows of coverage into an area of the canvas, with one of CoverageLoops' loops. Is not noted.
    void merge(void (*loop)(const CoveredPixels*), const QRect& area, const uchar* coverage, int coverageStride)
    {
        const CoveredPixels pixels = {m_pixels + area.top() * m_stride + area.left(),
                                      m_stride,
                                      coverage,
                                      coverageStride,
                                      area.width(),
                                      area.height()};
        loop(&pixels);
    }
    /// Notes a box on the canvas; right and bottom belong to it.
    void touch(int left, int top, int right, int bottom)
    {
        m_left = std::min(m_left, left);
        m_top = std::min(m_top, top);
        m_right = std::max(m_right, right);
        m_bottom = std::max(m_bottom, bottom);
    }

private:
    quint32* const m_pixels;
    const ptrdiff_t m_stride;  // in pixels
    const QSize m_size;
    int m_left = std::numeric_limits<int>::max();
    int m_top = std::numeric_limits<int>::max();
    int m_right = -1;
    int m_bottom = -1;
};
