#pragma once

#include "kernel/Value.h"
#include "mel/Ast.h"

namespace mel {

/// left op right. Ints stay ints (and wrap around at 32 bits), an int beside a float becomes one, a number beside a
/// vector stands for all three components, + with a text on either side joins texts. Comparisons give 1 or 0.
/// Throws CommandError for arrays and for a division by zero.
kernel::Value applied(BinaryOp op, kernel::Value left, const kernel::Value& right);
kernel::Value negated(const kernel::Value& value);

}  // namespace mel
