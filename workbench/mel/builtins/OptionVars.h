#pragma once

#include "kernel/Session.h"

#include <string>

namespace mel {

/// The option variables as a script that sets them, one line each.
std::string optionVarScript(const kernel::Session& session);

/// Reads and writes optionVars.mel in the preferences folder. Without such a folder or file nothing happens; what
/// cannot be read or written is a warning.
void loadOptionVars(kernel::Session& session);
void saveOptionVars(kernel::Session& session);

}  // namespace mel
