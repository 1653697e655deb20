#include "mel/Variables.h"

#include "kernel/Command.h"
#include "mel/Conversion.h"

#include <string>
#include <type_traits>
#include <utility>

namespace mel {

using kernel::CommandError;
using kernel::Value;

namespace {

[[noreturn]] void failIndex(std::size_t index)
{
    throw CommandError("Array index " + std::to_string(index) + " is out of range.");
}

std::size_t matrixPlace(const Variable& matrix, const Indices& indices)
{
    if (indices.size() != 2)
        failConversion(matrix.type, elementType(matrix.type));
    const std::size_t rows = std::get<kernel::DoubleArray>(matrix.value).size() / matrix.columns;
    if (indices[0] >= rows)
        failIndex(indices[0]);
    if (indices[1] >= matrix.columns)
        failIndex(indices[1]);
    return indices[0] * matrix.columns + indices[1];
}

void requireArray(const Variable& variable, const Indices& indices)
{
    if (!variable.type.array || indices.size() != 1)
        failConversion(variable.type, {variable.type.base, true});
}

}  // namespace

Variable freshVariable(Type type, std::size_t size, std::size_t columns)
{
    Variable variable;
    variable.type = type;
    variable.columns = unsigned(columns);
    variable.value = freshValue(type);
    if (type.base == BaseType::Matrix)
        variable.value = kernel::DoubleArray(size * columns);
    else if (type.array)
        visitArray(variable.value, [&](auto& elements) { elements.resize(size); });
    return variable;
}

Type elementType(Type type)
{
    return {type.base == BaseType::Matrix ? BaseType::Float : type.base, false};
}

void adoptType(Variable& variable, const Value& value, bool asElement)
{
    if (variable.type.base != BaseType::None)
        return;
    if (!kernel::hasValue(value))
        throw CommandError("A value is needed, but there is none.");
    const Type type = typeOf(value);
    variable = freshVariable({type.base, asElement || type.array});
}

Value readElement(const Variable& variable, const Indices& indices)
{
    if (variable.type.base == BaseType::Matrix)
        return std::get<kernel::DoubleArray>(variable.value)[matrixPlace(variable, indices)];
    requireArray(variable, indices);
    Value value = freshValue(elementType(variable.type));
    visitArray(variable.value, [&](const auto& elements) {
        if (indices[0] < elements.size())
            value = elements[indices[0]];
    });
    return value;
}

void writeElement(Variable& variable, const Indices& indices, Value value)
{
    if (variable.type.base == BaseType::Matrix) {
        std::get<kernel::DoubleArray>(variable.value)[matrixPlace(variable, indices)] = std::get<double>(value);
        return;
    }
    requireArray(variable, indices);
    if (indices[0] >= kMostElements)
        failIndex(indices[0]);
    visitArray(variable.value, [&](auto& elements) {
        using Element = typename std::decay_t<decltype(elements)>::value_type;
        if (indices[0] >= elements.size())
            elements.resize(indices[0] + 1);
        elements[indices[0]] = std::get<Element>(std::move(value));
    });
}

void writeWhole(Variable& variable, Value value)
{
    if (variable.type.base == BaseType::Matrix) {
        auto& elements = std::get<kernel::DoubleArray>(value);
        elements.resize(std::get<kernel::DoubleArray>(variable.value).size());
    }
    variable.value = std::move(value);
}

}  // namespace mel
