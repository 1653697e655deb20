#pragma once

namespace mel {

/// True when the thread's stack is nearly used up. Whatever follows a text's nesting downwards asks first and gives
/// an error in time, so that hostile nesting cannot crash the program.
bool isStackShort();

/// The words of that error.
constexpr const char* kTooDeep = "The script is nested too deeply.";

}  // namespace mel
