#pragma once

#include "kernel/Node.h"

#include <optional>

namespace api {

/// By its own flag or its compound's.
bool isLocked(const kernel::Node& node, const kernel::AttributeSpec& attribute);

// Nodes hold angles in degrees, the API speaks radians; all else is the same on both sides.
double toApiNumber(const kernel::AttributeSpec& attribute, double held);
/// What a node is to hold for a number of the API; none outside the attribute's range.
std::optional<double> toHeldNumber(const kernel::AttributeSpec& attribute, double number);

/// The whole part, kept within the range of an int.
int toWhole(double number);

}  // namespace api
