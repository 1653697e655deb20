#pragma once

/// What a pen pressed with `pressure` counts as, 0..1: light touches are steadied at 0.15 or lost, the upper half is
/// bent upward, and near the end it is full. pressure: above 0, up to 1; what a faulty driver reports beyond that
/// counts as 1, and what is no number as 0.
inline float penPressureCurve(float pressure)
{
    if (!(pressure >= 0.08f)) {
        return 0.0f;
    }
    if (pressure < 0.15f) {
        return 0.15f;
    }
    if (pressure > 0.5f) {
        const float missing = pressure < 1.0f ? 2.0f * (1.0f - pressure) : 0.0f;
        pressure = 1.0f - missing * missing / 2.0f;
    }
    return pressure > 0.98f ? 1.0f : pressure;
}
