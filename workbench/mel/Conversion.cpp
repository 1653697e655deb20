#include "mel/Conversion.h"

#include "kernel/Command.h"

#include <charconv>
#include <climits>
#include <cmath>

namespace mel {

using kernel::Value;
using kernel::Vector3;

namespace {

constexpr Type kInt{BaseType::Int, false};
constexpr Type kFloat{BaseType::Float, false};
constexpr Type kString{BaseType::String, false};

double length(const Vector3& v)
{
    return std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
}

void requireSingle(const Value& value, Type type)
{
    if (!kernel::hasValue(value))
        throw kernel::CommandError("A value of type " + typeName(type) + " is needed, but there is none.");
    if (kernel::isArray(value))
        failConversion(typeOf(value), type);
}

template <typename To, typename From, typename Convert>
Value convertedArray(const std::vector<From>& from, Convert convert)
{
    std::vector<To> to;
    to.reserve(from.size());
    for (const From& element : from)
        to.push_back(convert(element));
    return to;
}

template <typename From>
Value convertedArray(const std::vector<From>& from, Type type, bool* hadNumber)
{
    switch (type.base) {
    case BaseType::Int: return convertedArray<int>(from, [&](const From& e) { return asInteger(Value(e), hadNumber); });
    case BaseType::Float:
    case BaseType::Matrix:
        return convertedArray<double>(from, [&](const From& e) { return asNumber(Value(e), hadNumber); });
    case BaseType::String: return convertedArray<std::string>(from, [](const From& e) { return asText(Value(e)); });
    case BaseType::Vector:
        if (from.empty())
            return kernel::VectorArray();
        break;
    case BaseType::None: break;
    }
    failConversion(typeOf(Value(from)), type);
}

Vector3 asVector(const Value& value, bool* hadNumber)
{
    if (const auto* vector = std::get_if<Vector3>(&value))
        return *vector;
    const double number = asNumber(value, hadNumber);
    if (std::holds_alternative<std::string>(value))
        return {number, 0, 0};
    return {number, number, number};
}

}  // namespace

bool leadingNumber(const std::string& text, double& number)
{
    number = 0;
    std::size_t at = text.find_first_not_of(" \t\r\n");
    if (at == std::string::npos)
        return false;
    const bool negative = text[at] == '-';
    if (negative || text[at] == '+')
        ++at;
    const char* const end = text.data() + text.size();
    const char* const first = text.data() + at;
    // Words such as "inf" are no numbers here.
    if (first == end || !((*first >= '0' && *first <= '9') || *first == '.'))
        return false;
    if (std::from_chars(first, end, number).ec != std::errc())
        return false;
    if (negative)
        number = -number;
    return true;
}

int truncated(double number)
{
    if (std::isnan(number))
        return 0;
    if (number >= double(INT_MAX))
        return INT_MAX;
    if (number <= double(INT_MIN))
        return INT_MIN;
    return int(number);
}

double asNumber(const Value& value, bool* hadNumber)
{
    requireSingle(value, kFloat);
    if (const int* integer = std::get_if<int>(&value))
        return *integer;
    if (const double* number = std::get_if<double>(&value))
        return *number;
    if (const auto* vector = std::get_if<Vector3>(&value))
        return length(*vector);
    double number = 0;
    if (!leadingNumber(std::get<std::string>(value), number) && hadNumber)
        *hadNumber = false;
    return number;
}

int asInteger(const Value& value, bool* hadNumber)
{
    if (const int* integer = std::get_if<int>(&value))
        return *integer;
    requireSingle(value, kInt);
    return truncated(asNumber(value, hadNumber));
}

std::string asText(const Value& value)
{
    requireSingle(value, kString);
    return kernel::toText(value);
}

bool isTrue(const Value& value)
{
    if (const int* integer = std::get_if<int>(&value))
        return *integer != 0;
    if (const auto* vector = std::get_if<Vector3>(&value))
        return !(*vector == Vector3());
    requireSingle(value, kInt);
    return asNumber(value) != 0;
}

Value converted(Value value, Type type, bool* hadNumber)
{
    if (type.base == BaseType::Matrix)
        type = {BaseType::Float, true};
    if (typeOf(value) == type)
        return value;
    if (!type.array) {
        requireSingle(value, type);
        switch (type.base) {
        case BaseType::Int: return asInteger(value, hadNumber);
        case BaseType::Float: return asNumber(value, hadNumber);
        case BaseType::String: return kernel::toText(value);
        case BaseType::Vector: return asVector(value, hadNumber);
        default: return value;
        }
    }
    if (const auto* ints = std::get_if<kernel::IntArray>(&value))
        return convertedArray(*ints, type, hadNumber);
    if (const auto* doubles = std::get_if<kernel::DoubleArray>(&value))
        return convertedArray(*doubles, type, hadNumber);
    if (const auto* strings = std::get_if<kernel::StringArray>(&value))
        return convertedArray(*strings, type, hadNumber);
    if (!kernel::hasValue(value))
        requireSingle(value, type);
    failConversion(typeOf(value), type);
}

void failConversion(Type from, Type to)
{
    throw kernel::CommandError("Cannot convert data of type " + typeName(from) + " to type " + typeName(to) + ".");
}

}  // namespace mel
