#pragma once

#include "contexts/PointerSource.h"
#include "contexts/StrokeSmoother.h"
#include "model/ActiveStroke.h"

#include <vector>

/// Makes a stroke's points of its samples, each tool in its own way: freehand points follow one another, smoothed;
/// shapes are spanned by two; a text stands at one.
class StrokeFiller {
public:
    /// Begins another stroke.
    void clear();
    /// sample: raw, canvas pixels. False when it is dropped.
    bool add(ActiveStroke& stroke, const StrokePoint& sample, SampleTime time);
    /// Takes back what came of samples younger than `end`; of the first two never, for they are a click's mark.
    void cutAfter(SampleTime end, ActiveStroke& stroke);
    /// Ends the stroke at a place on the canvas, unless it does so already or its last point is younger than `time`.
    void endAt(const QPoint& place, SampleTime time, ActiveStroke& stroke);
    /// Weighs the opacity of all points so far, and of what is smoothed with them.
    void weigh(float pressure, ActiveStroke& stroke);
    /// Gives all points so far what another tool draws with, without a pen.
    void remake(const SamplingOptions& options, ActiveStroke& stroke);
    bool isEmpty() const { return m_points.empty(); }

private:
    struct TimedPoint {
        StrokePoint sample;  // as it came
        StrokePoint point;   // as it is in the stroke
        SampleTime time;
    };
    bool smooth(StrokePoint& point);
    void refill(ActiveStroke& stroke);

    StrokeSmoother m_smoother;
    std::vector<TimedPoint> m_points;  // that have gone into the stroke
};
