#pragma once

#include "kernel/Session.h"

namespace app {

/// Registers repeatLast: does the user's last action again. Scripts that act for the user name theirs with -addCommand.
void registerRepeatCommand(kernel::Session& session);

}  // namespace app
