#include "mel/Resolver.h"

#include "mel/Stack.h"
#include "mel/TokenStream.h"

namespace mel {

namespace {

[[noreturn]] void failRedeclaration(const VariableExpr& variable)
{
    throw SyntaxError("Invalid redeclaration of variable \"$" + variable.name + "\" as a different type.", variable.at);
}

void checkRedeclaration(Type before, Type now, const VariableExpr& variable)
{
    if (before.base != BaseType::None && before != now)
        failRedeclaration(variable);
}

void checkDepth(std::size_t at)
{
    if (isStackShort())
        throw SyntaxError(kTooDeep, at);
}

}  // namespace

bool isConstant(const Expr& expression)
{
    const auto all = [](const std::vector<ExprPtr>& list) {
        for (const ExprPtr& element : list) {
            if (!isConstant(*element))
                return false;
        }
        return true;
    };
    switch (expression.kind) {
    case ExprKind::Literal: return true;
    case ExprKind::Negate: return isConstant(*static_cast<const UnaryExpr&>(expression).operand);
    case ExprKind::Array: return all(static_cast<const ArrayExpr&>(expression).elements);
    case ExprKind::Matrix: return all(static_cast<const MatrixExpr&>(expression).elements);
    case ExprKind::Vector:
        for (const ExprPtr& component : static_cast<const VectorExpr&>(expression).components) {
            if (!isConstant(*component))
                return false;
        }
        return true;
    case ExprKind::Chain: {
        const auto& chain = static_cast<const ChainExpr&>(expression);
        for (const ChainExpr::Link& link : chain.links) {
            if (!isConstant(*link.operand))
                return false;
        }
        return isConstant(*chain.first);
    }
    default: return false;
    }
}

void Resolver::resolve(Unit& unit)
{
    m_scopes.assign(1, {});
    m_frameSize = 0;
    resolveStatements(unit.statements);
    unit.frameSize = m_frameSize;
}

void Resolver::resolveStatements(const StmtList& statements)
{
    for (const StmtPtr& statement : statements)
        resolveStatement(*statement);
}

void Resolver::resolveStatement(Stmt& statement)
{
    checkDepth(statement.at);
    switch (statement.kind) {
    case StmtKind::Empty:
    case StmtKind::Break:
    case StmtKind::Continue: break;
    case StmtKind::Expression: resolve(static_cast<ExpressionStmt&>(statement).expression); break;
    case StmtKind::Declaration: resolveDeclaration(static_cast<DeclarationStmt&>(statement)); break;
    case StmtKind::Block:
        m_scopes.emplace_back();
        resolveStatements(static_cast<BlockStmt&>(statement).statements);
        m_scopes.pop_back();
        break;
    case StmtKind::If:
        for (const IfStmt::Branch& branch : static_cast<IfStmt&>(statement).branches) {
            resolve(branch.test);
            resolveStatement(*branch.body);
        }
        break;
    case StmtKind::While:
    case StmtKind::DoWhile: {
        auto& loop = static_cast<WhileStmt&>(statement);
        if (statement.kind == StmtKind::While)
            resolve(loop.test);
        resolveStatement(*loop.body);
        if (statement.kind == StmtKind::DoWhile)
            resolve(loop.test);
        break;
    }
    case StmtKind::For: {
        auto& loop = static_cast<ForStmt&>(statement);
        resolveStatements(loop.start);
        resolve(loop.test);
        resolveStatement(*loop.body);
        for (const ExprPtr& step : loop.steps)
            resolve(step);
        break;
    }
    case StmtKind::ForIn: resolveForIn(static_cast<ForInStmt&>(statement)); break;
    case StmtKind::Switch: {
        auto& choice = static_cast<SwitchStmt&>(statement);
        resolve(choice.subject);
        for (const SwitchStmt::Case& one : choice.cases)
            resolve(one.value);
        m_scopes.emplace_back();
        resolveStatements(choice.statements);
        m_scopes.pop_back();
        break;
    }
    case StmtKind::Return: resolveReturn(static_cast<ReturnStmt&>(statement)); break;
    case StmtKind::Procedure: resolveProcedure(static_cast<ProcedureStmt&>(statement)); break;
    }
}

void Resolver::resolveProcedure(ProcedureStmt& procedure)
{
    std::vector<Scope> outer(1);
    outer.swap(m_scopes);
    const int outerFrameSize = m_frameSize;
    m_procedure = &procedure;
    m_hasReturn = false;
    m_frameSize = 0;
    for (const Parameter& parameter : procedure.parameters) {
        if (m_scopes.back().count(parameter.name))
            throw SyntaxError("Invalid redeclaration of variable \"$" + parameter.name + "\" as a different type.",
                              parameter.at);
        declare(parameter.name, parameter.type);
    }
    resolveStatements(procedure.body);
    if (procedure.result.base != BaseType::None && !m_hasReturn)
        throw SyntaxError("Procedure is missing a return statement.", procedure.at);
    procedure.frameSize = m_frameSize;
    m_procedure = nullptr;
    m_frameSize = outerFrameSize;
    m_scopes.swap(outer);
}

void Resolver::resolveReturn(const ReturnStmt& statement)
{
    resolve(statement.value);
    if (!m_procedure)
        return;
    if (statement.value) {
        m_hasReturn = true;
        if (m_procedure->result.base == BaseType::None)
            throw SyntaxError("This procedure has no return value.", statement.at);
    }
}

void Resolver::resolveDeclaration(DeclarationStmt& declaration)
{
    for (Declarator& declarator : declaration.declarators) {
        resolve(declarator.initialiser);
        if (declaration.isGlobal || isGlobalScope())
            declareGlobal(declarator);
        else
            declareLocal(declarator);
        if (declaration.isGlobal && declarator.initialiser) {
            if (!isConstant(*declarator.initialiser))
                throw SyntaxError("Global variables can only be initialised with constants.",
                                  declarator.initialiser->at);
            m_globalInitialisers.push_back(&declarator);
        }
    }
}

// A scope that names a global binds it; at the top level all are bound already.
void Resolver::declareGlobal(Declarator& declarator)
{
    const VariableExpr& variable = *declarator.variable;
    const auto fresh = m_newGlobals.find(variable.name);
    if (fresh != m_newGlobals.end())
        checkRedeclaration(fresh->second, declarator.type, variable);
    else if (const Type* known = m_knownGlobal(variable.name))
        checkRedeclaration(*known, declarator.type, variable);
    // Behind an assignment that declared it the type is not known before the text runs; then it is compared.
    m_newGlobals.emplace(variable.name, declarator.type);
    if (!isGlobalScope()) {
        const auto local = m_scopes.back().find(variable.name);
        if (local != m_scopes.back().end() && local->second.slot >= 0)
            failRedeclaration(variable);
        m_scopes.back()[variable.name] = {-1, declarator.type};
    }
}

void Resolver::declareLocal(Declarator& declarator)
{
    VariableExpr& variable = *declarator.variable;
    const auto before = m_scopes.back().find(variable.name);
    declarator.isFirst = before == m_scopes.back().end();
    if (!declarator.isFirst) {
        checkRedeclaration(before->second.type, declarator.type, variable);
        variable.slot = before->second.slot;
    } else {
        variable.slot = declare(variable.name, declarator.type).slot;
    }
}

void Resolver::resolveForIn(ForInStmt& loop)
{
    resolve(loop.source);
    if (loop.type.base != BaseType::None && !isGlobalScope()) {
        loop.variable->slot = declare(loop.variable->name, loop.type).slot;
    } else {
        bindOrDeclare(*loop.variable);
    }
    resolveStatement(*loop.body);
}

void Resolver::resolve(const ExprPtr& expression)
{
    if (expression)
        resolve(*expression);
}

void Resolver::resolve(Expr& expression)
{
    checkDepth(expression.at);
    const auto resolveAll = [this](const std::vector<ExprPtr>& list) {
        for (const ExprPtr& element : list)
            resolve(element);
    };
    switch (expression.kind) {
    case ExprKind::Literal: break;
    case ExprKind::Variable: resolveVariable(static_cast<VariableExpr&>(expression)); break;
    case ExprKind::Not:
    case ExprKind::Negate: resolve(static_cast<UnaryExpr&>(expression).operand); break;
    case ExprKind::Step: resolveVariable(*static_cast<StepExpr&>(expression).target); break;
    case ExprKind::Chain:
        resolve(static_cast<ChainExpr&>(expression).first);
        for (const ChainExpr::Link& link : static_cast<ChainExpr&>(expression).links)
            resolve(link.operand);
        break;
    case ExprKind::Logical: resolveAll(static_cast<LogicalExpr&>(expression).operands); break;
    case ExprKind::Conditional:
        resolve(static_cast<ConditionalExpr&>(expression).test);
        resolve(static_cast<ConditionalExpr&>(expression).yes);
        resolve(static_cast<ConditionalExpr&>(expression).no);
        break;
    case ExprKind::Assign: resolveAssignment(static_cast<AssignExpr&>(expression)); break;
    case ExprKind::Cast: resolve(static_cast<CastExpr&>(expression).operand); break;
    case ExprKind::Call: resolveAll(static_cast<CallExpr&>(expression).args); break;
    case ExprKind::Array: resolveAll(static_cast<ArrayExpr&>(expression).elements); break;
    case ExprKind::Matrix: resolveAll(static_cast<MatrixExpr&>(expression).elements); break;
    case ExprKind::Vector:
        for (const ExprPtr& component : static_cast<VectorExpr&>(expression).components)
            resolve(component);
        break;
    case ExprKind::Catch: resolve(static_cast<CatchExpr&>(expression).operand); break;
    }
}

void Resolver::resolveAssignment(AssignExpr& assignment)
{
    resolve(assignment.value);
    if (assignment.compound) {
        resolveVariable(*assignment.target);
        return;
    }
    for (const ExprPtr& index : assignment.target->indices)
        resolve(index);
    bindOrDeclare(*assignment.target);
}

// The first assignment to an unknown variable declares it where it stands.
void Resolver::bindOrDeclare(VariableExpr& variable)
{
    const Binding* known = find(variable.name);
    if (known) {
        variable.slot = known->slot;
        return;
    }
    variable.declares = true;
    if (isGlobalScope())
        m_newGlobals.emplace(variable.name, Type());
    else
        variable.slot = declare(variable.name, {}).slot;
}

void Resolver::resolveVariable(VariableExpr& variable)
{
    for (const ExprPtr& index : variable.indices)
        resolve(index);
    const Binding* known = find(variable.name);
    if (!known)
        throw SyntaxError("\"$" + variable.name + "\" is an undeclared variable.", variable.at);
    variable.slot = known->slot;
}

const Resolver::Binding* Resolver::find(const std::string& name) const
{
    static const Binding kGlobal;
    for (auto scope = m_scopes.rbegin(); scope != m_scopes.rend(); ++scope) {
        const auto found = scope->find(name);
        if (found != scope->end())
            return &found->second;
    }
    if (!m_procedure && (m_newGlobals.count(name) || m_knownGlobal(name)))
        return &kGlobal;
    return nullptr;
}

Resolver::Binding& Resolver::declare(const std::string& name, Type type)
{
    Binding& binding = m_scopes.back()[name];
    binding = {m_frameSize++, type};
    return binding;
}

}  // namespace mel
