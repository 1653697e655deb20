#include "kernel/Node.h"

#include <cmath>
#include <utility>

namespace kernel {

Matrix4 operator*(const Matrix4& a, const Matrix4& b)
{
    Matrix4 product;
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 4; ++column) {
            double sum = 0;
            for (int i = 0; i < 4; ++i)
                sum += a.m[row][i] * b.m[i][column];
            product.m[row][column] = sum;
        }
    }
    return product;
}

Matrix4 inverse(const Matrix4& m)
{
    // Gauss-Jordan with partial pivoting.
    Matrix4 work = m;
    Matrix4 result;
    for (int column = 0; column < 4; ++column) {
        int pivot = column;
        for (int row = column + 1; row < 4; ++row) {
            if (std::fabs(work.m[row][column]) > std::fabs(work.m[pivot][column]))
                pivot = row;
        }
        const double divisor = work.m[pivot][column];
        if (divisor == 0 || !std::isfinite(divisor))
            return Matrix4();
        std::swap(work.m[pivot], work.m[column]);
        std::swap(result.m[pivot], result.m[column]);
        for (int i = 0; i < 4; ++i) {
            work.m[column][i] /= divisor;
            result.m[column][i] /= divisor;
        }
        for (int row = 0; row < 4; ++row) {
            const double factor = work.m[row][column];
            if (row == column || factor == 0)
                continue;
            for (int i = 0; i < 4; ++i) {
                work.m[row][i] -= factor * work.m[column][i];
                result.m[row][i] -= factor * result.m[column][i];
            }
        }
    }
    return result;
}

Vector3 transformPoint(const Vector3& p, const Matrix4& m)
{
    const auto component = [&](int i) { return p.x * m.m[0][i] + p.y * m.m[1][i] + p.z * m.m[2][i] + m.m[3][i]; };
    return {component(0), component(1), component(2)};
}

}  // namespace kernel
