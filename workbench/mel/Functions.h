#pragma once

#include "mel/Variables.h"

#include <string>
#include <unordered_map>
#include <vector>

namespace mel {

class Interpreter;
class Source;

/// An argument as a function of the language gets it: arrays stay whole, and a plain variable can be changed.
struct Argument {
    Variable* variable = nullptr;  ///< the caller's variable; null when the argument is some other value
    kernel::Value own;             ///< that other value

    const kernel::Value& value() const { return variable ? variable->value : own; }
};

struct FunctionCall {
    Interpreter& interpreter;
    const std::string& name;
    const Source& source;  ///< the calling text, and where in it the call stands
    std::size_t at;
    std::vector<Argument>& args;

    /// The argument by the language's conversions; throws CommandError for an array.
    std::string text(std::size_t i) const;
    int integer(std::size_t i) const;
    double number(std::size_t i) const;
    kernel::StringArray strings(std::size_t i) const;
    /// The caller's string array itself; throws CommandError when the argument is no such variable.
    kernel::StringArray& stringsToChange(std::size_t i) const;
};

/// A function that needs the language itself: whole arrays, the caller's variables, or the interpreter. Everything
/// else is a command.
struct Function {
    kernel::Value (*run)(FunctionCall& call) = nullptr;
    unsigned minArgs = 0;
    unsigned maxArgs = 0;
};
using FunctionTable = std::unordered_map<std::string, Function>;
constexpr unsigned kAnyNumber = ~0u;

}  // namespace mel
