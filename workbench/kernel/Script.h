#pragma once

#include "kernel/Value.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace kernel {

class SceneIntake;

/// What a piece of executed text gave.
struct ScriptResult {
    bool ok = true;
    Value value;
};

class Node;

/// Told of parts of a file that have been read and need not stay in memory; they may be looked at again.
using PartRead = std::function<void(std::string_view part)>;

/// A scene whose statements come one piece at a time.
class SceneStatements {
public:
    virtual ~SceneStatements() = default;
    /// Runs whole statements as those of a text scene are run. False, and reported with the file's name, when there was
    /// any error.
    virtual bool run(std::string_view text) = 0;
    /// The node that statements about attributes belong to; null when the last `createNode` or `select` failed.
    virtual std::shared_ptr<Node> node() const = 0;
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
    virtual bool executeScene(std::string_view text, SceneIntake& intake, const PartRead& partRead = {}) = 0;
    /// The same for a scene that is no text but holds statements.
    virtual std::unique_ptr<SceneStatements> beginScene(SceneIntake& intake) = 0;
    virtual Value global(const std::string& name) const = 0;  ///< without "$"; monostate when undeclared
    virtual void setGlobalString(const std::string& name, const std::string& value) = 0;
    virtual bool isExecuting() const = 0;
};

}  // namespace kernel
