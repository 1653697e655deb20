#pragma once

#include "model/ActiveStroke.h"

#include <QPoint>

#include <vector>

/// Turns the pointer's raw positions into the points of a freehand stroke: each is a weighted mean of the last five,
/// and those too close to the stroke's end are left out.
class StrokeSmoother {
public:
    void clear();

    /// point: a raw sample, canvas pixels; its position and opacity become the smoothed ones, halves away from zero.
    /// stroke: what has been drawn so far. False when the sample is to be dropped.
    bool accept(StrokePoint& point, const QVector<StrokePoint>& stroke);
    /// Weighs the opacity of the samples so far.
    void weigh(float pressure);

private:
    struct Sample {
        QPoint position;
        float opacity;
    };
    Sample mean() const;

    std::vector<Sample> m_history;  // newest first
};
