#pragma once

#include <maya/MStatus.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A direction with a length; matrices turn and scale it but do not move it.
class MVector {
public:
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    MVector() = default;
    MVector(const MPoint& point);
    MVector(double x, double y, double z = 0.0) : x(x), y(y), z(z) {}
    MVector(const double values[3]) : x(values[0]), y(values[1]), z(values[2]) {}
    MVector(const float values[3]) : x(values[0]), y(values[1]), z(values[2]) {}

    MVector operator+(const MVector& other) const { return MVector(x + other.x, y + other.y, z + other.z); }
    MVector operator-(const MVector& other) const { return MVector(x - other.x, y - other.y, z - other.z); }
    MVector operator-() const { return MVector(-x, -y, -z); }
    MVector operator*(double factor) const { return MVector(x * factor, y * factor, z * factor); }
    MVector operator/(double divisor) const { return MVector(x / divisor, y / divisor, z / divisor); }
    MVector& operator+=(const MVector& other) { return *this = *this + other; }
    MVector& operator-=(const MVector& other) { return *this = *this - other; }
    MVector& operator*=(double factor) { return *this = *this * factor; }
    MVector& operator/=(double divisor) { return *this = *this / divisor; }
    double operator*(const MVector& other) const { return x * other.x + y * other.y + z * other.z; }  ///< dot product
    MVector operator^(const MVector& other) const;                                                    ///< cross product
    MVector operator*(const MMatrix& matrix) const;
    bool operator==(const MVector& other) const { return x == other.x && y == other.y && z == other.z; }
    bool operator!=(const MVector& other) const { return !(*this == other); }
    double& operator()(unsigned int index) { return (&x)[index]; }
    double operator()(unsigned int index) const { return (&x)[index]; }
    double& operator[](unsigned int index) { return (&x)[index]; }
    double operator[](unsigned int index) const { return (&x)[index]; }

    double length() const;
    MVector normal() const;  ///< itself when it has no length
    MStatus normalize();
    double angle(const MVector& other) const;  ///< radians, 0 to pi
    bool isEquivalent(const MVector& other, double tolerance = 1.0e-10) const;
    bool isParallel(const MVector& other, double tolerance = 1.0e-10) const;
    MStatus get(double values[3]) const;

    static const MVector zero;
    static const MVector one;
    static const MVector xAxis;
    static const MVector yAxis;
    static const MVector zAxis;
    static const MVector xNegAxis;
    static const MVector yNegAxis;
    static const MVector zNegAxis;
};

inline MVector operator*(double factor, const MVector& vector)
{
    return vector * factor;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
