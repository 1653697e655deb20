#pragma once

#include <QPoint>
#include <QRect>

#include <functional>

/// Where the pointer is, screen pixels. May be called on any thread.
using PointerSource = std::function<QPoint()>;

/// What one stroke is sampled with; fixed when the stroke starts.
struct SamplingOptions {
    QRect view;          ///< the view's place on the screen; nothing is sampled while it is invalid
    int width;           ///< canvas pixels
    float opacity;       ///< 0..1
    float hardness;      ///< 0..1
    bool tabletEnabled;  ///< the pen's pressure weighs the opacity
};
