#pragma once

#include <maya/MStatus.h>
#include <maya/MVector.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// A homogeneous point; a row vector, so p * M moves it.
class MPoint {
public:
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;
    double w = 1.0;

    MPoint() = default;
    MPoint(const MVector& vector) : x(vector.x), y(vector.y), z(vector.z) {}
    MPoint(double x, double y, double z = 0.0, double w = 1.0) : x(x), y(y), z(z), w(w) {}
    MPoint(const double values[4]) : x(values[0]), y(values[1]), z(values[2]), w(values[3]) {}
    MPoint(const float values[4]) : x(values[0]), y(values[1]), z(values[2]), w(values[3]) {}

    MPoint operator+(const MVector& vector) const;
    MVector operator-(const MPoint& other) const;
    MPoint operator-(const MVector& vector) const;
    MPoint& operator+=(const MVector& vector);
    MPoint& operator-=(const MVector& vector);
    MPoint operator*(const MMatrix& matrix) const;
    MPoint& operator*=(const MMatrix& matrix);
    MPoint operator*(double factor) const;
    MPoint operator/(double divisor) const;
    bool operator==(const MPoint& other) const;
    bool operator!=(const MPoint& other) const;
    double& operator()(unsigned int index) { return (&x)[index]; }
    double operator()(unsigned int index) const { return (&x)[index]; }
    double& operator[](unsigned int index) { return (&x)[index]; }
    double operator[](unsigned int index) const { return (&x)[index]; }

    double distanceTo(const MPoint& other) const;
    bool isEquivalent(const MPoint& other, double tolerance = 1.0e-10) const;
    MPoint& cartesianize();  ///< (x/w, y/w, z/w, 1)
    MPoint& homogenize();    ///< (x*w, y*w, z*w, w)
    MPoint& rationalize();   ///< (x/w, y/w, z/w, w)
    MStatus get(double values[4]) const;
    MStatus get(float values[4]) const;

    static const MPoint origin;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
