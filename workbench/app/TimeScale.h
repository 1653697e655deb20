#pragma once

#include "kernel/Scene.h"

namespace app {

/// Where the frames of the playback range lie on a time slider. Every frame has a cell of the same width; the first
/// one begins 0.5 % of the slider's width from the left, and all of them take 99 % of it:
///
///     x(frame) = 0.005 * width + (frame - first) * 0.99 * width / (last - first + 1)
///
/// Widgets laid over the slider count on this measure, which needs only their parent's width and the range.
struct TimeScale {
    kernel::Scene::Range range;  ///< the playback range, both ends shown
    int width;                   ///< of the slider, in its own pixels

    double cell() const { return 0.99 * width / (range.last - range.first + 1); }
    /// Left edge of a time's cell; may lie outside the slider.
    double x(double time) const { return 0.005 * width + (time - range.first) * cell(); }
    /// The whole frame whose cell is at x; the nearest one of the range beyond its ends.
    int frameAt(double x) const;
    /// Whole frames from one number to the next, so that they are at least so many pixels apart: 1, 2, 5, 10, 20...
    int interval(double leastGap) const;
};

}  // namespace app
