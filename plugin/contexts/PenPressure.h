#pragma once

/// What a pen pressed with `pressure` (above 0, up to 1) counts as: light touches are steadied at 0.15 or lost,
/// the upper half is bent upward, and near the end it is full.
inline float penPressureCurve(float pressure)
{
    if (pressure > 0.5f) {
        const float missing = 2.0f * (1.0f - pressure);
        pressure = 1.0f - missing * missing / 2.0f;
    }
    if (pressure < 0.08f) {
        return 0.0f;
    }
    if (pressure < 0.15f) {
        return 0.15f;
    }
    return pressure > 0.98f ? 1.0f : pressure;
}
