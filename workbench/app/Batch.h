#pragma once

#include "app/CommandLine.h"
#include "app/Host.h"

#include <string>

namespace app {

/// Path of the sketching module that goes with the program in `programFolder`.
std::string ownModulePath(const std::string& programFolder);

/// Runs what the command line asks for, without a window: the module, the scene, then each script and command with
/// what it leaves for idle time. Stops at the first failure.
/// Gives the exit status: 0, 1 for a failure, or what a script that quit asked for.
int runBatch(Host& host, const CommandLine& line, const std::string& programFolder);

}  // namespace app
