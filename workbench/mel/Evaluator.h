#pragma once

#include "mel/Interpreter.h"

#include <memory>
#include <vector>

namespace mel {

/// One activation: a text being run at the global scope, or one call of a procedure. Errors leave as ScriptError.
class Evaluator {
public:
    Evaluator(Interpreter& interpreter, std::shared_ptr<const Unit> unit, int frameSize);
    Evaluator(const Evaluator&) = delete;
    Evaluator& operator=(const Evaluator&) = delete;

    /// Runs one statement of the top level. Gives its value, when it is an expression or a command that has one.
    kernel::Value runTop(const Stmt& statement);
    bool hasReturned() const { return m_returned; }
    void initialiseGlobal(const Declarator& declarator);
    kernel::Value evaluate(const Expr& expression);

private:
    enum class Flow { Next, Break, Continue, Return };

    kernel::Value runProcedure(const ProcedureStmt& procedure, std::vector<Argument>& args);
    Flow execute(const Stmt& statement);
    Flow executeAll(const StmtList& statements, std::size_t first = 0);
    void discard(const Expr& expression);
    void declare(const DeclarationStmt& declaration);
    void declare(const Declarator& declarator, bool isGlobal);
    Flow executeIf(const IfStmt& statement);
    Flow executeWhile(const WhileStmt& loop);
    Flow executeFor(const ForStmt& loop);
    Flow executeForIn(const ForInStmt& loop);
    Flow executeSwitch(const SwitchStmt& statement);
    void define(const ProcedureStmt& procedure);

    kernel::Value read(const VariableExpr& variable);
    kernel::Value step(const StepExpr& expression);
    kernel::Value chain(const ChainExpr& expression);
    kernel::Value logical(const LogicalExpr& expression);
    kernel::Value array(const ArrayExpr& expression);
    kernel::Value catchError(const CatchExpr& expression);
    void assign(const AssignExpr& assignment);
    void store(const VariableExpr& target, kernel::Value value);
    void storeIn(Variable& variable, kernel::Value value);

    kernel::Value call(const CallExpr& expression);
    kernel::Value callProcedure(const Procedure& procedure, const CallExpr& expression);
    kernel::Value callFunction(const Function& function, const CallExpr& expression);
    kernel::Value callCommand(const CallExpr& expression);
    std::vector<Argument> arguments(const CallExpr& expression);
    kernel::ValueList spreadArguments(const CallExpr& expression);

    Variable& variable(const VariableExpr& expression);
    Indices indices(const VariableExpr& expression);
    kernel::Value convert(kernel::Value value, Type type);
    /// The error with its place in the text in front.
    ScriptError located(const kernel::CommandError& error) const;

    Interpreter& m_interpreter;
    const std::shared_ptr<const Unit> m_unit;
    std::vector<Variable> m_locals;
    std::vector<Variable*> m_slots;  ///< array parameters point at the caller's variable
    kernel::Value m_result;
    std::size_t m_at = 0;  ///< offset of what is being run
    bool m_returned = false;
};

}  // namespace mel
