#pragma once

#include <maya/MStatus.h>

OPENMAYA_MAJOR_NAMESPACE_OPEN

/// Row-major 4x4 matrix with the translation in row 3: points are row vectors.
class MMatrix {
public:
    double matrix[4][4];

    MMatrix();  ///< identity
    MMatrix(const double values[4][4]);
    MMatrix(const float values[4][4]);

    double& operator()(unsigned int row, unsigned int column) { return matrix[row][column]; }
    double operator()(unsigned int row, unsigned int column) const { return matrix[row][column]; }
    double* operator[](unsigned int row) { return matrix[row]; }
    const double* operator[](unsigned int row) const { return matrix[row]; }
    MStatus get(double values[4][4]) const;

    MMatrix operator*(const MMatrix& other) const;
    MMatrix operator*(double factor) const;
    MMatrix operator+(const MMatrix& other) const;
    MMatrix operator-(const MMatrix& other) const;
    MMatrix& operator*=(const MMatrix& other);
    MMatrix& operator*=(double factor);
    MMatrix& operator+=(const MMatrix& other);
    MMatrix& operator-=(const MMatrix& other);
    bool operator==(const MMatrix& other) const;
    bool operator!=(const MMatrix& other) const;

    MMatrix inverse() const;  ///< identity when there is none
    MMatrix adjoint() const;
    MMatrix homogenize() const;  ///< w column made 0, 0, 0, 1
    MMatrix transpose() const;
    double det4x4() const;
    double det3x3() const;  ///< of the upper left part
    bool isSingular() const;
    bool isEquivalent(const MMatrix& other, double tolerance = 1.0e-10) const;
    MMatrix& setToIdentity();
    MMatrix& setToProduct(const MMatrix& left, const MMatrix& right);

    static const MMatrix identity;
};

OPENMAYA_MAJOR_NAMESPACE_CLOSE
