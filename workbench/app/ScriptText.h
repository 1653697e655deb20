#pragma once

#include <string>

namespace app {

/// A text as a string literal of the script language, quotes included.
std::string quoted(const std::string& text);

}  // namespace app
