#pragma once

#include "mel/Types.h"

#include <cstddef>
#include <vector>

namespace mel {

/// An array or a matrix has no more; a number gone wrong must not take all memory.
constexpr std::size_t kMostElements = std::size_t(1) << 24;

/// What a variable holds. A matrix keeps its rows one after the other in a float array.
struct Variable {
    Type type;
    unsigned columns = 0;  ///< matrix only
    kernel::Value value;
};

/// Places in an array, or row and column of a matrix.
using Indices = std::vector<std::size_t>;

/// Calls `visit` with the vector inside an array value.
template <typename ValueType, typename Visit>
auto visitArray(ValueType& value, Visit visit)
{
    if (auto* ints = std::get_if<kernel::IntArray>(&value))
        return visit(*ints);
    if (auto* doubles = std::get_if<kernel::DoubleArray>(&value))
        return visit(*doubles);
    if (auto* strings = std::get_if<kernel::StringArray>(&value))
        return visit(*strings);
    return visit(std::get<kernel::VectorArray>(value));
}

/// A new variable: zero, empty, or as long as its declaration says. size: elements of an array, rows of a matrix.
Variable freshVariable(Type type, std::size_t size = 0, std::size_t columns = 0);

/// The type of one element of an array or matrix.
Type elementType(Type type);

/// Gives a variable without a type that of the first value it gets. asElement: the value becomes an array's element.
void adoptType(Variable& variable, const kernel::Value& value, bool asElement);

/// One element; past the end of an array a fresh value. Throws CommandError when the variable has no such elements.
kernel::Value readElement(const Variable& variable, const Indices& indices);
/// The value must be of the element's type. Writing past the end of an array makes it longer.
void writeElement(Variable& variable, const Indices& indices, kernel::Value value);
/// The value must be of the variable's type; a matrix keeps its size.
void writeWhole(Variable& variable, kernel::Value value);

}  // namespace mel
