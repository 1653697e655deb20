#include "mel/Types.h"

namespace mel {

using kernel::Value;

std::string typeName(Type type)
{
    static const char* const kNames[] = {"", "int", "float", "string", "vector", "matrix"};
    return kNames[int(type.base)] + std::string(type.array ? "[]" : "");
}

Type typeOf(const Value& value)
{
    // In the order of the alternatives of Value.
    static const Type kTypes[] = {
        {BaseType::None, false},   {BaseType::Int, false},    {BaseType::Float, false},
        {BaseType::String, false}, {BaseType::Vector, false}, {BaseType::Int, true},
        {BaseType::Float, true},   {BaseType::String, true},  {BaseType::Vector, true},
    };
    return kTypes[value.index()];
}

Value freshValue(Type type)
{
    switch (type.base) {
    case BaseType::None: return {};
    case BaseType::Int: return type.array ? Value(kernel::IntArray()) : Value(0);
    case BaseType::Float: return type.array ? Value(kernel::DoubleArray()) : Value(0.0);
    case BaseType::String: return type.array ? Value(kernel::StringArray()) : Value(std::string());
    case BaseType::Vector: return type.array ? Value(kernel::VectorArray()) : Value(kernel::Vector3());
    case BaseType::Matrix: return kernel::DoubleArray();
    }
    return {};
}

}  // namespace mel
