#include "mel/Operators.h"

#include "kernel/Command.h"
#include "mel/Conversion.h"

#include <cmath>

namespace mel {

using kernel::Value;
using kernel::Vector3;

namespace {

constexpr const char* kDivisionByZero = "Division by zero.";

void requireOperand(const Value& operand, const Value& other)
{
    if (kernel::isArray(operand))
        failConversion(typeOf(operand), kernel::isArray(other) ? Type{BaseType::Int, false} : typeOf(other));
    if (!kernel::hasValue(operand))
        throw kernel::CommandError("A value is needed, but there is none.");
}

[[noreturn]] void failOperator(const char* name, const char* operands)
{
    throw kernel::CommandError(std::string("The operator ") + name + " cannot be used with " + operands + ".");
}

template <typename T>
int compared(BinaryOp op, const T& a, const T& b)
{
    switch (op) {
    case BinaryOp::Less: return a < b;
    case BinaryOp::LessEqual: return a <= b;
    case BinaryOp::Greater: return a > b;
    case BinaryOp::GreaterEqual: return a >= b;
    case BinaryOp::Equal: return a == b;
    default: return a != b;
    }
}

bool isComparison(BinaryOp op)
{
    return op >= BinaryOp::Less;
}

Value appliedToInts(BinaryOp op, int a, int b)
{
    // Through unsigned, where running over is defined.
    const unsigned ua = unsigned(a);
    const unsigned ub = unsigned(b);
    switch (op) {
    case BinaryOp::Add: return int(ua + ub);
    case BinaryOp::Subtract: return int(ua - ub);
    case BinaryOp::Multiply: return int(ua * ub);
    case BinaryOp::Divide:
        if (b == 0)
            throw kernel::CommandError(kDivisionByZero);
        return b == -1 ? int(0u - ua) : a / b;
    case BinaryOp::Modulo:
        if (b == 0)
            throw kernel::CommandError(kDivisionByZero);
        return b == -1 ? 0 : a % b;
    case BinaryOp::Cross: failOperator("^", "numbers");
    default: return compared(op, a, b);
    }
}

Value appliedToNumbers(BinaryOp op, double a, double b)
{
    switch (op) {
    case BinaryOp::Add: return a + b;
    case BinaryOp::Subtract: return a - b;
    case BinaryOp::Multiply: return a * b;
    case BinaryOp::Divide:
        if (b == 0)
            throw kernel::CommandError(kDivisionByZero);
        return a / b;
    case BinaryOp::Modulo:
        if (b == 0)
            throw kernel::CommandError(kDivisionByZero);
        return std::fmod(a, b);
    case BinaryOp::Cross: failOperator("^", "numbers");
    default: return compared(op, a, b);
    }
}

Vector3 spread(const Value& value)
{
    return std::get<Vector3>(converted(value, {BaseType::Vector, false}));
}

Value appliedToVectors(BinaryOp op, const Value& left, const Value& right)
{
    const Vector3 a = spread(left);
    const Vector3 b = spread(right);
    const bool bothVectors = left.index() == right.index();
    switch (op) {
    case BinaryOp::Add: return Vector3{a.x + b.x, a.y + b.y, a.z + b.z};
    case BinaryOp::Subtract: return Vector3{a.x - b.x, a.y - b.y, a.z - b.z};
    case BinaryOp::Multiply:
        if (bothVectors)
            return a.x * b.x + a.y * b.y + a.z * b.z;
        return Vector3{a.x * b.x, a.y * b.y, a.z * b.z};
    case BinaryOp::Divide:
        if (b.x == 0 || b.y == 0 || b.z == 0)
            throw kernel::CommandError(kDivisionByZero);
        return Vector3{a.x / b.x, a.y / b.y, a.z / b.z};
    case BinaryOp::Cross: return Vector3{a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
    case BinaryOp::Modulo: failOperator("%", "vectors");
    case BinaryOp::Equal: return int(a == b);
    case BinaryOp::NotEqual: return int(!(a == b));
    default: return compared(op, asNumber(left), asNumber(right));
    }
}

}  // namespace

Value applied(BinaryOp op, Value left, const Value& right)
{
    if (std::holds_alternative<int>(left) && std::holds_alternative<int>(right))
        return appliedToInts(op, std::get<int>(left), std::get<int>(right));
    requireOperand(left, right);
    requireOperand(right, left);
    if (std::holds_alternative<std::string>(left) || std::holds_alternative<std::string>(right)) {
        if (isComparison(op))
            return compared(op, asText(left), asText(right));
        if (op == BinaryOp::Add) {
            std::string joined = std::holds_alternative<std::string>(left) ? std::get<std::string>(std::move(left))
                                                                           : kernel::toText(left);
            joined += std::holds_alternative<std::string>(right) ? std::get<std::string>(right) : kernel::toText(right);
            return joined;
        }
    }
    if (std::holds_alternative<Vector3>(left) || std::holds_alternative<Vector3>(right))
        return appliedToVectors(op, left, right);
    return appliedToNumbers(op, asNumber(left), asNumber(right));
}

Value negated(const Value& value)
{
    if (const int* integer = std::get_if<int>(&value))
        return int(0u - unsigned(*integer));
    if (const auto* vector = std::get_if<Vector3>(&value))
        return Vector3{-vector->x, -vector->y, -vector->z};
    return -asNumber(value);
}

}  // namespace mel
