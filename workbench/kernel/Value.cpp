#include "kernel/Value.h"

#include <charconv>
#include <cmath>
#include <limits>

namespace kernel {

namespace {

std::string vectorText(const Vector3& v)
{
    return numberText(v.x) + ' ' + numberText(v.y) + ' ' + numberText(v.z);
}

std::string elementText(int element)
{
    return std::to_string(element);
}
std::string elementText(double element)
{
    return numberText(element);
}
const std::string& elementText(const std::string& element)
{
    return element;
}
std::string elementText(const Vector3& element)
{
    return vectorText(element);
}

template <typename T>
std::string joined(const std::vector<T>& elements)
{
    std::string text;
    for (const T& element : elements) {
        if (&element != &elements.front())
            text += ' ';
        text += elementText(element);
    }
    return text;
}

template <typename... Format>
std::string formatted(double number, Format... format)
{
    char buffer[64];
    const auto end = std::to_chars(buffer, buffer + sizeof buffer, number, format...).ptr;
    return std::string(buffer, end);
}

bool wordToNumber(const std::string& word, double& out)
{
    for (const char* yes : {"on", "yes", "true"}) {
        if (word == yes) {
            out = 1;
            return true;
        }
    }
    for (const char* no : {"off", "no", "false"}) {
        if (word == no) {
            out = 0;
            return true;
        }
    }
    return false;
}

/// Past an optional plus sign, which std::from_chars does not take.
const char* numberStart(const std::string& text)
{
    return text.c_str() + (text.size() > 1 && text[0] == '+' && text[1] != '-' ? 1 : 0);
}

}  // namespace

bool hasValue(const Value& value)
{
    return !std::holds_alternative<std::monostate>(value);
}

bool isArray(const Value& value)
{
    return std::holds_alternative<IntArray>(value) || std::holds_alternative<DoubleArray>(value)
        || std::holds_alternative<StringArray>(value) || std::holds_alternative<VectorArray>(value);
}

std::string numberText(double number)
{
    return formatted(number, std::chars_format::general, 10);
}

std::string exactNumberText(double number)
{
    return formatted(number);
}

std::string toText(const Value& value)
{
    struct Visitor {
        std::string operator()(std::monostate) const { return {}; }
        std::string operator()(int number) const { return std::to_string(number); }
        std::string operator()(double number) const { return numberText(number); }
        std::string operator()(const std::string& text) const { return text; }
        std::string operator()(const Vector3& v) const { return vectorText(v); }
        std::string operator()(const IntArray& a) const { return joined(a); }
        std::string operator()(const DoubleArray& a) const { return joined(a); }
        std::string operator()(const StringArray& a) const { return joined(a); }
        std::string operator()(const VectorArray& a) const { return joined(a); }
    };
    return std::visit(Visitor(), value);
}

bool toDouble(const Value& value, double& out)
{
    if (const int* number = std::get_if<int>(&value)) {
        out = *number;
        return true;
    }
    if (const double* number = std::get_if<double>(&value)) {
        out = *number;
        return true;
    }
    if (const Vector3* v = std::get_if<Vector3>(&value)) {
        out = std::sqrt(v->x * v->x + v->y * v->y + v->z * v->z);
        return true;
    }
    if (const std::string* text = std::get_if<std::string>(&value))
        return wordToNumber(*text, out) || parseDouble(*text, out);
    return false;
}

bool toInt(const Value& value, int& out)
{
    double number = 0;
    if (!toDouble(value, number))
        return false;
    const double whole = std::trunc(number);
    // written so that a NaN fails as well
    if (!(whole >= std::numeric_limits<int>::min() && whole <= std::numeric_limits<int>::max()))
        return false;
    out = static_cast<int>(whole);
    return true;
}

bool toBool(const Value& value, bool& out)
{
    double number = 0;
    if (!toDouble(value, number))
        return false;
    out = number != 0;
    return true;
}

bool parseDouble(const std::string& text, double& out)
{
    const char* start = numberStart(text);
    const char* end = text.c_str() + text.size();
    const char* digits = *start == '-' ? start + 1 : start;
    if (*digits != '.' && (*digits < '0' || *digits > '9'))
        return false;  // "inf" and "nan" are words here
    double number = 0;
    const auto result = std::from_chars(start, end, number);
    if (result.ec != std::errc() || result.ptr != end)
        return false;
    out = number;
    return true;
}

bool parseInt(const std::string& text, int& out)
{
    const char* start = numberStart(text);
    const char* end = text.c_str() + text.size();
    int number = 0;
    const auto result = std::from_chars(start, end, number);
    if (result.ec != std::errc() || result.ptr != end)
        return false;
    out = number;
    return true;
}

}  // namespace kernel
