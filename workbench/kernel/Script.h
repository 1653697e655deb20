#pragma once

#include "kernel/Value.h"

#include <string>

namespace kernel {

class SceneIntake;

/// What a piece of executed text gave.
struct ScriptResult {
    bool ok = true;
    Value value;
};

/// The script language as the rest of the host sees it. Errors are reported through Session::output.
class ScriptEngine {
public:
    virtual ~ScriptEngine() = default;
    /// Runs a text at the global scope. display: echo the text and its result. undo: what it does is one undo
    /// step (or joins the open one); otherwise nothing is recorded.
    virtual ScriptResult execute(const std::string& text, bool display, bool undo) = 0;
    /// Runs a script file; messages name file and line.
    virtual ScriptResult executeFile(const std::string& path, bool undo) = 0;
    /// Runs a text scene statement by statement with the commands a scene may hold; an error is reported with
    /// file and line and reading goes on. False when there was any. Nothing is recorded for undo.
    virtual bool executeScene(const std::string& text, SceneIntake& intake) = 0;
    virtual Value global(const std::string& name) const = 0;  ///< without "$"; monostate when undeclared
    virtual void setGlobalString(const std::string& name, const std::string& value) = 0;
    virtual bool isExecuting() const = 0;
};

}  // namespace kernel
