#include <maya/MMatrix.h>

#include <cmath>

OPENMAYA_MAJOR_NAMESPACE_OPEN

const MMatrix MMatrix::identity;

namespace {

template <typename Number>
void fill(double out[4][4], const Number values[4][4])
{
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            out[row][column] = values[row][column];
    }
}

/// Determinant of what is left without one row and one column.
double minorOf(const MMatrix& m, int row, int column)
{
    double rest[3][3];
    for (int r = 0; r < 3; ++r) {
        for (int c = 0; c < 3; ++c)
            rest[r][c] = m.matrix[r + (r >= row)][c + (c >= column)];
    }
    return rest[0][0] * (rest[1][1] * rest[2][2] - rest[1][2] * rest[2][1])
         - rest[0][1] * (rest[1][0] * rest[2][2] - rest[1][2] * rest[2][0])
         + rest[0][2] * (rest[1][0] * rest[2][1] - rest[1][1] * rest[2][0]);
}

double cofactor(const MMatrix& m, int row, int column)
{
    return (row + column) % 2 ? -minorOf(m, row, column) : minorOf(m, row, column);
}

}  // namespace

MMatrix::MMatrix()
{
    setToIdentity();
}

MMatrix::MMatrix(const double values[4][4])
{
    fill(matrix, values);
}

MMatrix::MMatrix(const float values[4][4])
{
    fill(matrix, values);
}

MStatus MMatrix::get(double values[4][4]) const
{
    fill(values, matrix);
    return MStatus::kSuccess;
}

MMatrix MMatrix::operator*(const MMatrix& other) const
{
    MMatrix out;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            out.matrix[row][column] = 0;
            for (int k = 0; k < 4; ++k)
                out.matrix[row][column] += matrix[row][k] * other.matrix[k][column];
        }
    }
    return out;
}

MMatrix MMatrix::operator*(double factor) const
{
    MMatrix out(*this);
    return out *= factor;
}

MMatrix MMatrix::operator+(const MMatrix& other) const
{
    MMatrix out(*this);
    return out += other;
}

MMatrix MMatrix::operator-(const MMatrix& other) const
{
    MMatrix out(*this);
    return out -= other;
}

MMatrix& MMatrix::operator*=(const MMatrix& other)
{
    return *this = *this * other;
}

MMatrix& MMatrix::operator*=(double factor)
{
    for (auto& row : matrix) {
        for (double& value : row)
            value *= factor;
    }
    return *this;
}

MMatrix& MMatrix::operator+=(const MMatrix& other)
{
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            matrix[row][column] += other.matrix[row][column];
    }
    return *this;
}

MMatrix& MMatrix::operator-=(const MMatrix& other)
{
    return *this += other * -1;
}

bool MMatrix::operator==(const MMatrix& other) const
{
    return isEquivalent(other, 0);
}

bool MMatrix::operator!=(const MMatrix& other) const
{
    return !(*this == other);
}

MMatrix MMatrix::inverse() const
{
    const double determinant = det4x4();
    return determinant == 0 ? MMatrix() : adjoint() * (1 / determinant);
}

MMatrix MMatrix::adjoint() const
{
    MMatrix out;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            out.matrix[column][row] = cofactor(*this, row, column);
    }
    return out;
}

MMatrix MMatrix::homogenize() const
{
    MMatrix out(*this);
    for (int row = 0; row < 4; ++row)
        out.matrix[row][3] = row == 3 ? 1 : 0;
    return out;
}

MMatrix MMatrix::transpose() const
{
    MMatrix out;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            out.matrix[column][row] = matrix[row][column];
    }
    return out;
}

double MMatrix::det4x4() const
{
    double sum = 0;
    for (int column = 0; column < 4; ++column)
        sum += matrix[0][column] * cofactor(*this, 0, column);
    return sum;
}

double MMatrix::det3x3() const
{
    return minorOf(*this, 3, 3);
}

bool MMatrix::isSingular() const
{
    return std::abs(det4x4()) < 1e-12;
}

bool MMatrix::isEquivalent(const MMatrix& other, double tolerance) const
{
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            if (!(std::abs(matrix[row][column] - other.matrix[row][column]) <= tolerance))
                return false;
        }
    }
    return true;
}

MMatrix& MMatrix::setToIdentity()
{
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column)
            matrix[row][column] = row == column;
    }
    return *this;
}

MMatrix& MMatrix::setToProduct(const MMatrix& left, const MMatrix& right)
{
    return *this = left * right;
}

OPENMAYA_MAJOR_NAMESPACE_CLOSE
