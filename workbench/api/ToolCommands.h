#pragma once

namespace kernel {
class Session;
}

namespace api {

/// Registers setToolTo, currentCtx, contextInfo, ctxAbort and ctxCompletion.
void installToolCommands(kernel::Session& session);

}  // namespace api
