#include "api/PlugValues.h"

#include <algorithm>
#include <cmath>

namespace api {
namespace {

using kernel::ValueKind;

constexpr double kDegreesPerRadian = 180 / 3.14159265358979323846;

double rounded(ValueKind kind, double number)
{
    switch (kind) {
    case ValueKind::Bool: return number != 0;
    case ValueKind::Int:
    case ValueKind::Enum: return toWhole(number);
    case ValueKind::Angle: return number * kDegreesPerRadian;
    default: return number;
    }
}

}  // namespace

double toApiNumber(const kernel::AttributeSpec& attribute, double held)
{
    return attribute.kind == ValueKind::Angle ? held / kDegreesPerRadian : held;
}

std::optional<double> toHeldNumber(const kernel::AttributeSpec& attribute, double number)
{
    const double held = rounded(attribute.kind, number);
    const bool isBelow = attribute.minimum && held < *attribute.minimum;
    const bool isAbove = attribute.maximum && held > *attribute.maximum;
    return isBelow || isAbove ? std::nullopt : std::optional<double>(held);
}

int toWhole(double number)
{
    return std::isnan(number) ? 0 : int(std::clamp(number, -2147483648.0, 2147483647.0));
}

}  // namespace api
