#pragma once

#include "kernel/Value.h"

#include <string>

namespace mel {

enum class BaseType : unsigned char { None, Int, Float, String, Vector, Matrix };

/// Type of a variable, parameter or result. None is "no result", and "not known yet" for a variable that takes the
/// type of what is assigned to it first.
struct Type {
    BaseType base = BaseType::None;
    bool array = false;

    bool operator==(const Type& o) const { return base == o.base && array == o.array; }
    bool operator!=(const Type& o) const { return !(*this == o); }
};

/// As scripts and messages write it: `int`, `string[]`; empty for None.
std::string typeName(Type type);
Type typeOf(const kernel::Value& value);
/// 0, 0.0, "", the zero vector or an empty array; a matrix is a float array, row by row.
kernel::Value freshValue(Type type);

}  // namespace mel
