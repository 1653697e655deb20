#pragma once

#include <string>
#include <variant>
#include <vector>

namespace kernel {

struct Vector3 {
    double x = 0;
    double y = 0;
    double z = 0;
    bool operator==(const Vector3& o) const { return x == o.x && y == o.y && z == o.z; }
};

using IntArray = std::vector<int>;
using DoubleArray = std::vector<double>;
using StringArray = std::vector<std::string>;
using VectorArray = std::vector<Vector3>;

/// One script value: a command argument, a command result, a variable's content.
/// monostate is "no value" (a command without a result).
using Value =
    std::variant<std::monostate, int, double, std::string, Vector3, IntArray, DoubleArray, StringArray, VectorArray>;
using ValueList = std::vector<Value>;

bool hasValue(const Value& value);
bool isArray(const Value& value);

/// Text of a number as scripts see it: ten significant digits, "C" locale, 2.0 gives "2".
std::string numberText(double number);
/// Text with as many digits as needed to read the same double back ("C" locale).
std::string exactNumberText(double number);

/// The value as script text; arrays give their elements joined by one blank.
std::string toText(const Value& value);

/// Conversions by the script language's rules. They give false, and leave the output, when the value has no
/// such reading. Words on/off/yes/no/true/false are numbers; text must be a whole number text.
bool toInt(const Value& value, int& out);
bool toDouble(const Value& value, double& out);
bool toBool(const Value& value, bool& out);

/// Locale-independent whole-text parse of a decimal number; false when anything is left over.
bool parseDouble(const std::string& text, double& out);
bool parseInt(const std::string& text, int& out);

}  // namespace kernel
