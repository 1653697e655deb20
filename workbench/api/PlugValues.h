#pragma once

#include "kernel/Node.h"

#include <optional>

namespace api {

// Nodes hold angles in degrees, the API speaks radians; all else is the same on both sides.
double toApiNumber(const kernel::AttributeSpec& attribute, double held);
/// What a node is to hold for a number of the API; none outside the attribute's range.
std::optional<double> toHeldNumber(const kernel::AttributeSpec& attribute, double number);

/// The whole part, kept within the range of an int.
int toWhole(double number);

}  // namespace api
