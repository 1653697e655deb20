#include <maya/MPoint.h>

#include <maya/MMatrix.h>

#include <cmath>

OPENMAYA_MAJOR_NAMESPACE_OPEN

const MPoint MPoint::origin;

MPoint MPoint::operator+(const MVector& vector) const
{
    return MPoint(x + vector.x, y + vector.y, z + vector.z, w);
}

MVector MPoint::operator-(const MPoint& other) const
{
    return MVector(x - other.x, y - other.y, z - other.z);
}

MPoint MPoint::operator-(const MVector& vector) const
{
    return MPoint(x - vector.x, y - vector.y, z - vector.z, w);
}

MPoint& MPoint::operator+=(const MVector& vector)
{
    return *this = *this + vector;
}

MPoint& MPoint::operator-=(const MVector& vector)
{
    return *this = *this - vector;
}

MPoint MPoint::operator*(const MMatrix& matrix) const
{
    MPoint out;
    for (unsigned column = 0; column < 4; ++column)
        out[column] = x * matrix(0, column) + y * matrix(1, column) + z * matrix(2, column) + w * matrix(3, column);
    return out;
}

MPoint& MPoint::operator*=(const MMatrix& matrix)
{
    return *this = *this * matrix;
}

MPoint MPoint::operator*(double factor) const
{
    return MPoint(x * factor, y * factor, z * factor, w);
}

MPoint MPoint::operator/(double divisor) const
{
    return MPoint(x / divisor, y / divisor, z / divisor, w);
}

bool MPoint::operator==(const MPoint& other) const
{
    return x == other.x && y == other.y && z == other.z && w == other.w;
}

bool MPoint::operator!=(const MPoint& other) const
{
    return !(*this == other);
}

double MPoint::distanceTo(const MPoint& other) const
{
    return (*this - other).length();
}

bool MPoint::isEquivalent(const MPoint& other, double tolerance) const
{
    return std::abs(x - other.x) <= tolerance && std::abs(y - other.y) <= tolerance
        && std::abs(z - other.z) <= tolerance && std::abs(w - other.w) <= tolerance;
}

MPoint& MPoint::cartesianize()
{
    rationalize();
    w = w == 0 ? 0 : 1;
    return *this;
}

MPoint& MPoint::homogenize()
{
    x *= w;
    y *= w;
    z *= w;
    return *this;
}

MPoint& MPoint::rationalize()
{
    if (w != 0 && w != 1) {
        x /= w;
        y /= w;
        z /= w;
    }
    return *this;
}

MStatus MPoint::get(double values[4]) const
{
    for (unsigned i = 0; i < 4; ++i)
        values[i] = (*this)[i];
    return MStatus::kSuccess;
}

MStatus MPoint::get(float values[4]) const
{
    for (unsigned i = 0; i < 4; ++i)
        values[i] = float((*this)[i]);
    return MStatus::kSuccess;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
