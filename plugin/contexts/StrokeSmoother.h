#pragma once

#include <vector>

/// Turns the pointer's raw samples into the points of a freehand stroke: each is a weighted mean of the last five, and
/// those too close to the stroke's end are left out.
class StrokeSmoother {
public:
    struct Sample {
        int x;  ///< canvas pixels, as y
        int y;
        float opacity;  ///< 0..1
    };

    /// Begins another stroke.
    void clear();
    /// The next sample, of a tool of so many canvas pixels. False when it is to be dropped; else it becomes the
    /// stroke's next point, halves of a pixel rounded away from zero.
    bool accept(Sample& sample, int width);
    /// Weighs the opacity of the samples so far.
    void weigh(float pressure);
    /// Gives the samples so far another opacity.
    void setOpacity(float opacity);

private:
    Sample mean() const;

    std::vector<Sample> m_history;  // raw, newest first
    int m_pointCount = 0;
    Sample m_lastPoint = {0, 0, 0.0f};
};
