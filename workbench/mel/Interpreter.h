#pragma once

#include "kernel/Session.h"
#include "mel/Ast.h"
#include "mel/Functions.h"

#include <functional>
#include <memory>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace mel {

class Resolver;
class Source;

/// An error of a running script whose message already says where it happened.
class ScriptError : public kernel::CommandError {
public:
    using CommandError::CommandError;
};

/// A procedure as callers find it. It keeps the text it was defined in alive, also when it replaces itself.
struct Procedure {
    std::shared_ptr<const Unit> unit;
    const ProcedureStmt* definition = nullptr;
    explicit operator bool() const { return definition != nullptr; }
};

/// The script language: compiles and runs texts, and keeps what outlives them, global variables and procedures.
class Interpreter : public kernel::ScriptEngine {
public:
    explicit Interpreter(kernel::Session& session);
    ~Interpreter() override;
    /// The session's own.
    static Interpreter& of(kernel::Session& session);

    // --- running, from outside: errors are reported, not thrown ------------------------------------------------
    kernel::ScriptResult execute(const std::string& text, bool display, bool undo) override;
    /// A text whose lines the user has before him: echoed, one undo step, and messages name the line.
    kernel::ScriptResult executeWritten(const std::string& text);
    kernel::ScriptResult executeFile(const std::string& path, bool undo) override;
    /// As a batch run does: every statement of the top level is an undo step of its own, and the first error ends
    /// the text. fileName: named in messages; empty for text from the command line.
    kernel::ScriptResult executeBatch(const std::string& text, const std::string& fileName = {});
    kernel::ScriptResult executeBatchFile(const std::string& path);
    bool executeScene(std::string_view text, kernel::SceneIntake& intake,
                      const kernel::PartRead& partRead = {}) override;
    std::unique_ptr<kernel::SceneStatements> beginScene(kernel::SceneIntake& intake) override;
    bool isExecuting() const override { return m_depth > 0; }

    // --- running, from inside a script: errors are thrown as CommandError --------------------------------------
    /// At the global scope, within the undo step that is open. A text that cannot be compiled is reported and
    /// leaves as an error without a message.
    kernel::Value evaluate(const std::string& text);
    /// `name` may be a path, or stand in one of the script folders, with or without ".mel".
    void source(const std::string& name);

    /// While on, every text that runs stands in the journal, those run silently too.
    bool echoesAll() const { return m_echoesAll; }
    void setEchoesAll(bool on) { m_echoesAll = on; }

    // --- what outlives a text -----------------------------------------------------------------------------------
    kernel::Value global(const std::string& name) const override;
    void setGlobalString(const std::string& name, const std::string& value) override;
    /// Null when there is none of that name (without "$").
    Variable* findGlobal(const std::string& name);
    Variable& declareGlobal(const std::string& name);

    void define(const std::string& name, Procedure procedure);
    /// Looks in the calling text (may be null), then among the global procedures.
    Procedure findProcedure(const std::string& name, const std::shared_ptr<const Unit>& caller) const;
    /// Path of the script file of that name in the script folders; empty when there is none.
    std::string findScript(const std::string& name) const;
    FunctionTable& functions() { return m_functions; }
    const FunctionTable& functions() const { return m_functions; }

    kernel::Session& session() { return m_session; }

    // --- errors --------------------------------------------------------------------------------------------------
    /// Says the error, if it has a message, and remembers it for getLastError.
    void report(const kernel::CommandError& error);
    const std::string& lastError() const { return m_lastError; }

    // --- scenes --------------------------------------------------------------------------------------------------
    /// The node that plugs without a node name (".tx") belong to while a scene is read; null otherwise.
    kernel::NodePtr sceneNode() const { return m_sceneNode; }
    void setSceneNode(kernel::NodePtr node) { m_sceneNode = std::move(node); }
    /// While it lives, all arguments of the statement about module data that a scene runs, long texts included, which
    /// the command's own list lacks. Null: a statement whose list has everything.
    class SceneArguments {
    public:
        SceneArguments(Interpreter& interpreter, const kernel::Arguments* arguments) : m_interpreter(interpreter)
        {
            interpreter.m_sceneArguments = arguments;
        }
        ~SceneArguments() { m_interpreter.m_sceneArguments = nullptr; }
        SceneArguments(const SceneArguments&) = delete;
        SceneArguments& operator=(const SceneArguments&) = delete;

    private:
        Interpreter& m_interpreter;
    };
    /// For the command itself; null for any other, also one that the module runs meanwhile.
    const kernel::Arguments* takeSceneArguments() { return std::exchange(m_sceneArguments, nullptr); }

    /// Marks a piece of script as running.
    class Running {
    public:
        explicit Running(Interpreter& interpreter) : m_interpreter(interpreter) { ++m_interpreter.m_depth; }
        ~Running() { --m_interpreter.m_depth; }
        Running(const Running&) = delete;
        Running& operator=(const Running&) = delete;

    private:
        Interpreter& m_interpreter;
    };

    /// Counts calls of procedures within one another; throws CommandError when they are too many.
    class Call {
    public:
        Call(Interpreter& interpreter, const std::string& procedure);
        ~Call() { --m_interpreter.m_calls; }
        Call(const Call&) = delete;
        Call& operator=(const Call&) = delete;

    private:
        Interpreter& m_interpreter;
    };

private:
    class UndoStep;
    class ReadingScene;
    /// Does the work and reports the error it ends with.
    kernel::ScriptResult guarded(const std::function<kernel::Value()>& work);
    std::vector<std::string> scriptFolders() const;
    kernel::ScriptResult executeSource(const std::shared_ptr<const Source>& source, bool display, bool undo);
    /// Throws, with the error reported already, when it cannot be compiled.
    std::shared_ptr<const Unit> compile(const std::shared_ptr<const Source>& source);
    void declareGlobals(const Resolver& resolver, const std::shared_ptr<const Unit>& unit);
    kernel::Value runUnit(const std::shared_ptr<const Unit>& unit);
    kernel::Value runText(const std::string& text, const std::string& fileName);

    kernel::Session& m_session;
    FunctionTable m_functions;
    std::unordered_map<std::string, std::unique_ptr<Variable>> m_globals;
    std::unordered_map<std::string, Procedure> m_procedures;
    kernel::NodePtr m_sceneNode;
    const kernel::Arguments* m_sceneArguments = nullptr;
    std::string m_lastError;
    bool m_echoesAll = false;
    int m_depth = 0;
    int m_calls = 0;
};

}  // namespace mel
