#pragma once

#include "node/ViewportMetrics.h"

#include <QImage>

/// A node's picture in the legacy viewport: one texture drawn as a square over the view. Except for its making and its
/// going, to be used where the host has a view's OpenGL at hand.
class LegacyPicture {
public:
    LegacyPicture() = default;
    ~LegacyPicture();
    LegacyPicture(const LegacyPicture&) = delete;
    LegacyPicture& operator=(const LegacyPicture&) = delete;

    /// image: kCanvasSize square, RGBA8888. generation: tells it from the one drawn last, which is not uploaded again.
    /// opacity: 0..1. The OpenGL state is as it was afterwards.
    void draw(const QImage& image, quint64 generation, const ViewportMetrics& metrics, float opacity);

private:
    void bind(const QImage& image, quint64 generation);

    unsigned int m_texture = 0;  ///< 0 until first drawn
    quint64 m_shown = 0;         ///< generation of the picture in the texture
};
