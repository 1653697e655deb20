#include "kernel/Node.h"

#include <algorithm>
#include <cmath>
#include <string>
#include <utility>

namespace kernel {

namespace {

constexpr double kDegrees = 180.0 / 3.14159265358979323846;

double dot(const double* a, const double* b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

/// What rounding leaves of axes that stand upright on one another is no shear.
double shearOf(double share, double scale)
{
    return std::fabs(share) > 1e-9 * std::fabs(scale) ? share / scale : 0;
}

}  // namespace

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

Placement placementOf(const Matrix4& matrix)
{
    const auto& m = matrix.m;
    Placement parts = {{m[3][0], m[3][1], m[3][2]}, {}, {}, {}};
    // Each row less its share of the axes before it (Gram-Schmidt).
    double unit[3][3];
    double share[3][3] = {};
    for (int row = 0; row < 3; ++row) {
        double rest[3] = {m[row][0], m[row][1], m[row][2]};
        for (int axis = 0; axis < row; ++axis) {
            share[row][axis] = dot(m[row], unit[axis]);
            for (int i = 0; i < 3; ++i)
                rest[i] -= share[row][axis] * unit[axis][i];
        }
        parts.scale[row] = std::sqrt(dot(rest, rest));
        for (int i = 0; i < 3; ++i)
            unit[row][i] = parts.scale[row] != 0 ? rest[i] / parts.scale[row] : row == i;
    }
    const double determinant = unit[0][0] * (unit[1][1] * unit[2][2] - unit[1][2] * unit[2][1])
                             - unit[0][1] * (unit[1][0] * unit[2][2] - unit[1][2] * unit[2][0])
                             + unit[0][2] * (unit[1][0] * unit[2][1] - unit[1][1] * unit[2][0]);
    if (determinant < 0) {
        parts.scale[2] = -parts.scale[2];
        for (double& element : unit[2])
            element = -element;
    }
    parts.shear[0] = shearOf(share[1][0], parts.scale[1]);
    parts.shear[1] = shearOf(share[2][0], parts.scale[2]);
    parts.shear[2] = shearOf(share[2][1], parts.scale[2]);
    // Row vectors, x first: R = Rx * Ry * Rz, whose first row is (cy cz, cy sz, -sy).
    const double flat = std::hypot(unit[0][0], unit[0][1]);
    parts.rotate[1] = std::atan2(-unit[0][2], flat) * kDegrees;
    if (flat > 1e-9) {
        parts.rotate[0] = std::atan2(unit[1][2], unit[2][2]) * kDegrees;
        parts.rotate[2] = std::atan2(unit[0][1], unit[0][0]) * kDegrees;
    } else {
        parts.rotate[0] = std::atan2(-unit[2][1], unit[1][1]) * kDegrees;
    }
    return parts;
}

void placeLocally(Node& transform, const Matrix4& local)
{
    const Matrix4 before = transform.localMatrix();
    if (!transform.unknownType.empty() || std::equal(&local.m[0][0], &local.m[0][0] + 16, &before.m[0][0]))
        return;
    const auto set = [&transform](const std::string& name, double value) {
        transform.setValue(*transform.attribute(name), value);
    };
    const Placement parts = placementOf(local);
    const char* const axes[] = {"X", "Y", "Z"};
    const char* const planes[] = {"shearXY", "shearXZ", "shearYZ"};
    for (int i = 0; i < 3; ++i) {
        set(std::string("scale") + axes[i], parts.scale[i]);
        set(planes[i], parts.shear[i]);
        set(std::string("rotateAxis") + axes[i], 0);
        set(std::string("rotate") + axes[i], parts.rotate[i]);
    }
    set("rotateOrder", 0);
    const Matrix4 turned = transform.localMatrix();  // about its pivots, which moves it
    for (int i = 0; i < 3; ++i) {
        const std::string name = std::string("translate") + axes[i];
        set(name, transform.number(name) + local.m[3][i] - turned.m[3][i]);
    }
}

}  // namespace kernel
