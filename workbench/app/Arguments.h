#pragma once

#include "kernel/Command.h"
#include "kernel/Syntax.h"

namespace app {

/// Sorts a command's arguments; throws kernel::CommandError in the host's words when they do not fit.
inline kernel::ParsedArgs parsedOrThrow(const kernel::Syntax& syntax, const kernel::ValueList& args)
{
    kernel::ParsedArgs parsed;
    std::string error;
    if (!kernel::parseArguments(syntax, args, parsed, error)) {
        throw kernel::CommandError(error);
    }
    return parsed;
}

}  // namespace app
