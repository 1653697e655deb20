#include <maya/MVector.h>

#include <maya/MMatrix.h>
#include <maya/MPoint.h>

#include <algorithm>
#include <cmath>

OPENMAYA_MAJOR_NAMESPACE_OPEN

const MVector MVector::zero(0, 0, 0);
const MVector MVector::one(1, 1, 1);
const MVector MVector::xAxis(1, 0, 0);
const MVector MVector::yAxis(0, 1, 0);
const MVector MVector::zAxis(0, 0, 1);
const MVector MVector::xNegAxis(-1, 0, 0);
const MVector MVector::yNegAxis(0, -1, 0);
const MVector MVector::zNegAxis(0, 0, -1);

MVector::MVector(const MPoint& point) : x(point.x), y(point.y), z(point.z) {}

MVector MVector::operator^(const MVector& other) const
{
    return MVector(y * other.z - z * other.y, z * other.x - x * other.z, x * other.y - y * other.x);
}

MVector MVector::operator*(const MMatrix& matrix) const
{
    MVector out;
    for (unsigned column = 0; column < 3; ++column)
        out[column] = x * matrix(0, column) + y * matrix(1, column) + z * matrix(2, column);
    return out;
}

double MVector::length() const
{
    return std::sqrt(*this * *this);
}

MVector MVector::normal() const
{
    const double size = length();
    return size > 0 ? *this / size : *this;
}

MStatus MVector::normalize()
{
    *this = normal();
    return MStatus::kSuccess;
}

double MVector::angle(const MVector& other) const
{
    const double sizes = length() * other.length();
    return sizes > 0 ? std::acos(std::clamp(*this * other / sizes, -1.0, 1.0)) : 0;
}

bool MVector::isEquivalent(const MVector& other, double tolerance) const
{
    return std::abs(x - other.x) <= tolerance && std::abs(y - other.y) <= tolerance
        && std::abs(z - other.z) <= tolerance;
}

bool MVector::isParallel(const MVector& other, double tolerance) const
{
    return (normal() ^ other.normal()).length() <= tolerance;
}

MStatus MVector::get(double values[3]) const
{
    for (unsigned i = 0; i < 3; ++i)
        values[i] = (*this)[i];
    return MStatus::kSuccess;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
