#pragma once

namespace kernel {
class Session;
}

namespace mel {

/// Makes the interpreter, installs it in the session and registers the commands that need no window: nodes,
/// attributes, selection, time, units, files, undo, option variables, deferred scripts, script jobs.
void installScriptLanguage(kernel::Session& session);

}  // namespace mel
