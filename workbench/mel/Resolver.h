#pragma once

#include "mel/Ast.h"

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace mel {

/// Whether an expression needs no variables, commands or functions.
bool isConstant(const Expr& expression);

/// Binds every variable of a tree to a place, its frame's slot or the global scope, and refuses what cannot be bound:
/// undeclared variables, declarations that contradict, procedures without their return. Throws SyntaxError.
class Resolver {
public:
    /// knownGlobal: type of a global variable that exists already; null when there is none.
    using KnownGlobal = std::function<const Type*(const std::string& name)>;
    explicit Resolver(KnownGlobal knownGlobal) : m_knownGlobal(std::move(knownGlobal)) {}

    void resolve(Unit& unit);
    /// Global variables the text adds; of type None while only the first value will tell.
    const std::map<std::string, Type>& newGlobals() const { return m_newGlobals; }
    /// Declarations of global variables with a value, in order; their values are set once, before the text runs.
    const std::vector<const Declarator*>& globalInitialisers() const { return m_globalInitialisers; }

private:
    struct Binding {
        int slot = -1;  ///< -1: global
        Type type;      ///< None while only the first value will tell
    };
    using Scope = std::map<std::string, Binding>;

    void resolveStatement(Stmt& statement);
    void resolveStatements(const StmtList& statements);
    void resolveProcedure(ProcedureStmt& procedure);
    void resolveDeclaration(DeclarationStmt& declaration);
    void declareGlobal(Declarator& declarator);
    void declareLocal(Declarator& declarator);
    void resolveForIn(ForInStmt& loop);
    void resolveReturn(const ReturnStmt& statement);
    void resolve(Expr& expression);
    void resolve(const ExprPtr& expression);
    void resolveAssignment(AssignExpr& assignment);
    void resolveVariable(VariableExpr& variable);
    void bindOrDeclare(VariableExpr& variable);
    /// Null when no scope that can be seen from here has it.
    const Binding* find(const std::string& name) const;
    Binding& declare(const std::string& name, Type type);
    bool isGlobalScope() const { return !m_procedure && m_scopes.size() == 1; }

    KnownGlobal m_knownGlobal;
    std::vector<Scope> m_scopes;
    std::map<std::string, Type> m_newGlobals;
    std::vector<const Declarator*> m_globalInitialisers;
    const ProcedureStmt* m_procedure = nullptr;
    bool m_hasReturn = false;
    int m_frameSize = 0;
};

}  // namespace mel
