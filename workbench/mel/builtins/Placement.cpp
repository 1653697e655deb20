#include "mel/builtins/Placement.h"

#include <cmath>

namespace mel {

using kernel::AttributePtr;
using kernel::NodePtr;

namespace {

constexpr double kDegrees = 180.0 / 3.14159265358979323846;

void setTriple(BuiltinCall& call, const NodePtr& node, const char* name, const double (&values)[3])
{
    const char* const axes[] = {"X", "Y", "Z"};
    for (int i = 0; i < 3; ++i)
        setNumber(call, node, std::string(name) + axes[i], values[i], "parent");
}

}  // namespace

bool isLocked(const kernel::Node& node, const kernel::AttributeSpec& attribute)
{
    const auto locked = [&](const std::string& name) {
        const AttributePtr other = name.empty() ? nullptr : node.attribute(name);
        return other && node.flags(*other).locked;
    };
    if (node.flags(attribute).locked || locked(attribute.parent))
        return true;
    for (const std::string& child : attribute.children) {
        if (locked(child))
            return true;
    }
    return false;
}

void setNumber(BuiltinCall& call, const NodePtr& node, const std::string& attribute, double value, const char* command)
{
    if (node->number(attribute) == value)
        return;
    try {
        call.apply(kernel::setValueEdit(node, node->attribute(attribute), value));
    } catch (const kernel::CommandError& error) {
        throw kernel::CommandError(std::string(command) + ": " + error.what());
    }
}

void place(BuiltinCall& call, const NodePtr& node, const kernel::Matrix4& local)
{
    const auto& m = local.m;
    double scale[3];
    double unit[3][3];
    for (int row = 0; row < 3; ++row) {
        scale[row] = std::sqrt(m[row][0] * m[row][0] + m[row][1] * m[row][1] + m[row][2] * m[row][2]);
        for (int column = 0; column < 3; ++column)
            unit[row][column] = scale[row] != 0 ? m[row][column] / scale[row] : row == column;
    }
    const double determinant = unit[0][0] * (unit[1][1] * unit[2][2] - unit[1][2] * unit[2][1])
                             - unit[0][1] * (unit[1][0] * unit[2][2] - unit[1][2] * unit[2][0])
                             + unit[0][2] * (unit[1][0] * unit[2][1] - unit[1][1] * unit[2][0]);
    if (determinant < 0) {
        scale[2] = -scale[2];
        for (double& element : unit[2])
            element = -element;
    }
    // Row vectors, x first: R = Rx * Ry * Rz, whose first row is (cy cz, cy sz, -sy).
    const double flat = std::hypot(unit[0][0], unit[0][1]);
    double rotate[3];
    rotate[1] = std::atan2(-unit[0][2], flat) * kDegrees;
    if (flat > 1e-9) {
        rotate[0] = std::atan2(unit[1][2], unit[2][2]) * kDegrees;
        rotate[2] = std::atan2(unit[0][1], unit[0][0]) * kDegrees;
    } else {
        rotate[0] = std::atan2(-unit[2][1], unit[1][1]) * kDegrees;
        rotate[2] = 0;
    }
    const double translate[3] = {m[3][0], m[3][1], m[3][2]};
    setTriple(call, node, "translate", translate);
    setTriple(call, node, "rotate", rotate);
    setTriple(call, node, "scale", scale);
}

}  // namespace mel
