#pragma once

#include "kernel/Session.h"

namespace app {

/// Registers the commands about camera views: refresh, lookThru, modelPanel, modelEditor, getPanel. Without a window
/// they do nothing or answer with nothing, so that scripts made for the window run in batch.
void registerViewCommands(kernel::Session& session);

}  // namespace app
