#pragma once

#include <string>

namespace mel {

/// The text as a string of the script language, quotes included.
std::string quoted(const std::string& text);

}  // namespace mel
