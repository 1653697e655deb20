#pragma once

#include <maya/MStatus.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A colour with components from 0 to 1.
class MColor {
public:
    enum MColorType { kRGB, kHSV, kCMY, kCMYK };

    float r = 0.0f;
    float g = 0.0f;
    float b = 0.0f;
    float a = 1.0f;

    MColor() = default;
    MColor(float r, float g, float b, float a = 1.0f) : r(r), g(g), b(b), a(a) {}
    MColor(MColorType model, float c1, float c2, float c3, float alpha = 1.0f);
    MColor(const float rgb[3]) : r(rgb[0]), g(rgb[1]), b(rgb[2]) {}

    /// False for a model of another number of components (kCMYK).
    bool get(MColorType model, float& c1, float& c2, float& c3) const;
    bool set(MColorType model, float c1, float c2, float c3, float alpha = 1.0f);

    MColor operator*(const MColor& other) const { return MColor(r * other.r, g * other.g, b * other.b, a * other.a); }
    MColor operator*(float factor) const { return MColor(r * factor, g * factor, b * factor, a * factor); }
    MColor operator/(float divisor) const { return MColor(r / divisor, g / divisor, b / divisor, a / divisor); }
    MColor operator+(const MColor& other) const { return MColor(r + other.r, g + other.g, b + other.b, a + other.a); }
    MColor operator-(const MColor& other) const { return MColor(r - other.r, g - other.g, b - other.b, a - other.a); }
    bool operator==(const MColor& other) const { return r == other.r && g == other.g && b == other.b && a == other.a; }
    bool operator!=(const MColor& other) const { return !(*this == other); }
    float& operator()(unsigned int index) { return (&r)[index]; }
    float operator()(unsigned int index) const { return (&r)[index]; }
    float& operator[](unsigned int index) { return (&r)[index]; }
    float operator[](unsigned int index) const { return (&r)[index]; }
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
