#pragma once

#include "kernel/Value.h"
#include "mel/Types.h"

#include <string>

namespace mel {

/// The number a text starts with ("3.9kg" gives 3.9). False, and 0, when it starts with none.
bool leadingNumber(const std::string& text, double& number);

/// The value in another type, by the language's rules: floats are cut towards zero, a vector gives its length, a
/// text its leading number. Throws CommandError between arrays and single values, and for no value at all.
/// hadNumber (may be null): set to false when a text without a number was turned into 0.
kernel::Value converted(kernel::Value value, Type type, bool* hadNumber = nullptr);

// Shorthands for single values.
double asNumber(const kernel::Value& value, bool* hadNumber = nullptr);
int asInteger(const kernel::Value& value, bool* hadNumber = nullptr);
std::string asText(const kernel::Value& value);
/// Whether a condition holds for the value.
bool isTrue(const kernel::Value& value);

/// A number cut towards zero and held within an int.
int truncated(double number);

/// Throws what a script is told about a value that does not fit a type.
[[noreturn]] void failConversion(Type from, Type to);

}  // namespace mel
