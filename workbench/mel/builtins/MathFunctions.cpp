#include "mel/Conversion.h"
#include "mel/Interpreter.h"
#include "mel/builtins/Subjects.h"

#include <algorithm>
#include <cmath>
#include <random>

namespace mel {

using kernel::CommandError;
using kernel::Value;

namespace {

bool areInts(const FunctionCall& call)
{
    return std::all_of(call.args.begin(), call.args.end(),
                       [](const Argument& arg) { return std::holds_alternative<int>(arg.value()); });
}

/// An int when all arguments are.
Value kept(const FunctionCall& call, double number)
{
    return areInts(call) ? Value(truncated(number)) : Value(number);
}

Value absolute(FunctionCall& call)
{
    return kept(call, std::fabs(call.number(0)));
}

Value smaller(FunctionCall& call)
{
    return kept(call, std::min(call.number(0), call.number(1)));
}

Value larger(FunctionCall& call)
{
    return kept(call, std::max(call.number(0), call.number(1)));
}

Value clamp(FunctionCall& call)
{
    return kept(call, std::max(call.number(0), std::min(call.number(1), call.number(2))));
}

template <double (*apply)(double)>
Value ofNumber(FunctionCall& call)
{
    return apply(call.number(0));
}

Value power(FunctionCall& call)
{
    return std::pow(call.number(0), call.number(1));
}

Value squareRoot(FunctionCall& call)
{
    const double number = call.number(0);
    if (number < 0)
        throw CommandError("sqrt: The argument must not be negative.");
    return std::sqrt(number);
}

/// rand(high) or rand(low, high).
Value random(FunctionCall& call)
{
    static std::mt19937 generator{std::random_device{}()};
    const double low = call.args.size() == 2 ? call.number(0) : 0;
    const double high = call.number(call.args.size() - 1);
    return low + (high - low) * (double(generator()) / double(std::mt19937::max()));
}

}  // namespace

void addMathFunctions(Interpreter& interpreter)
{
    FunctionTable& table = interpreter.functions();
    table["abs"] = {absolute, 1, 1};
    table["min"] = {smaller, 2, 2};
    table["max"] = {larger, 2, 2};
    table["clamp"] = {clamp, 3, 3};
    table["floor"] = {ofNumber<std::floor>, 1, 1};
    table["ceil"] = {ofNumber<std::ceil>, 1, 1};
    table["trunc"] = {ofNumber<std::trunc>, 1, 1};
    table["sin"] = {ofNumber<std::sin>, 1, 1};
    table["cos"] = {ofNumber<std::cos>, 1, 1};
    table["pow"] = {power, 2, 2};
    table["sqrt"] = {squareRoot, 1, 1};
    table["rand"] = {random, 1, 2};
}

}  // namespace mel
