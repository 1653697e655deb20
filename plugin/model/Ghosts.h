#pragma once

#include "model/Layer.h"

#include <QColor>
#include <QImage>

/// Faded neighbours of the current frame, by keys and not by time.
struct GhostOptions {
    bool previous;
    bool next;
    int previousCount;
    int nextCount;
    bool tinted;
    QColor previousTint;
    QColor nextTint;
};

GhostOptions ghostOptions();  ///< as the preferences say

/// Opacity of the strongest ghost, the one next to the current frame.
constexpr float kStrongestGhost = 0.4f;

/// One camera's ghosts. They outlive a stroke, so that they stay on screen while drawing without being made anew.
class GhostImages {
public:
    void rebuild(Layer& layer, const GhostOptions& options);
    const QImage& image() const { return m_image; }  ///< earlier frames behind later ones; null before the first

private:
    // Null is transparent.
    QImage m_previous;  // left as it is while earlier ghosts are off, and still drawn behind later ones: it is meant
    QImage m_image;
};

/// Gives every pixel that is not fully transparent the colour; alpha is kept. The image is RGBA8888.
void tintImage(QImage& image, const QColor& colour);
