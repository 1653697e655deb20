#pragma once

#include <QPoint>

#include <chrono>
#include <functional>

using SampleClock = std::chrono::steady_clock;
using SampleTime = SampleClock::time_point;

/// The pointer as it was seen.
struct PointerSighting {
    QPoint place;  ///< screen pixels
    SampleTime time;
};

/// Looks at the pointer. May be called on any thread.
using PointerSource = std::function<PointerSighting()>;

/// What one stroke is sampled with; fixed when the stroke starts, unless it turns out to be an
/// eraser's.
struct SamplingOptions {
    int width;           ///< canvas pixels
    float opacity;       ///< 0..1
    float hardness;      ///< 0..1
    bool tabletEnabled;  ///< the pen's pressure weighs the opacity
};
