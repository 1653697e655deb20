#pragma once

#include <string>
#include <vector>

namespace api {

/// Takes away the draw override creators a module registered, with the overrides they made; gives their
/// classifications. drawOverridesOf() in Registration.h lists them.
std::vector<std::string> dropDrawOverridesOf(const std::string& module);

}  // namespace api
