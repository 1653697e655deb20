#pragma once

#include "kernel/Session.h"

#include <string>

namespace api {

/// Takes away the event and condition callbacks a module added; gives how many there were.
unsigned dropCallbacksOf(kernel::Session& session, const std::string& module);
/// The session is going, and every callback with it.
void forgetCallbacks();

}  // namespace api
