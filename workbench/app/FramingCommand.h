#pragma once

#include "kernel/Session.h"

namespace app {

/// Registers viewFit: the view worked in looks at what is selected, or at everything. Without a window it does nothing.
void registerFramingCommand(kernel::Session& session);

}  // namespace app
