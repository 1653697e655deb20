#include "mel/Evaluator.h"

#include "mel/Conversion.h"
#include "mel/Operators.h"
#include "mel/Source.h"
#include "mel/Stack.h"

#include <optional>
#include <utility>

namespace mel {

using kernel::CommandError;
using kernel::Value;

namespace {

Value component(const Value& value, int which)
{
    if (!std::holds_alternative<kernel::Vector3>(value))
        failConversion(typeOf(value), {BaseType::Vector, false});
    const auto& vector = std::get<kernel::Vector3>(value);
    return which == 0 ? vector.x : which == 1 ? vector.y : vector.z;
}

/// A bare word stays a word on its way into a procedure, where a number is made of it: 1 for "true", "on" and "yes".
Value withBooleanWord(Value value, Type type)
{
    double number = 0;
    const bool wantsNumber = !type.array && (type.base == BaseType::Int || type.base == BaseType::Float);
    const bool isNumber = wantsNumber && std::holds_alternative<std::string>(value) && kernel::toDouble(value, number);
    return isNumber ? Value(number) : value;
}

}  // namespace

Evaluator::Evaluator(Interpreter& interpreter, std::shared_ptr<const Unit> unit, int frameSize)
    : m_interpreter(interpreter), m_unit(std::move(unit)), m_locals(frameSize), m_slots(frameSize)
{
    for (int i = 0; i < frameSize; ++i)
        m_slots[i] = &m_locals[i];
}

ScriptError Evaluator::located(const CommandError& error) const
{
    const std::string message = error.what();
    if (message.empty())
        return ScriptError(message);
    return ScriptError(m_unit->source->messagePrefix(m_at) + message);
}

Value Evaluator::runTop(const Stmt& statement)
{
    m_at = statement.at;
    try {
        if (statement.kind == StmtKind::Expression)
            return evaluate(*static_cast<const ExpressionStmt&>(statement).expression);
        m_returned = execute(statement) == Flow::Return;
        return {};
    } catch (const ScriptError&) {
        throw;
    } catch (const CommandError& error) {
        throw located(error);
    }
}

// The frame's first slots are the parameters. Arrays are the caller's own; an array that is no variable of the
// caller, and every single value, is the callee's copy.
Value Evaluator::runProcedure(const ProcedureStmt& procedure, std::vector<Argument>& args)
{
    m_at = procedure.at;
    try {
        for (std::size_t i = 0; i < args.size(); ++i) {
            const Type type = procedure.parameters[i].type;
            if (type.array && args[i].variable && args[i].variable->type == type) {
                m_slots[i] = args[i].variable;
                continue;
            }
            m_locals[i].type = type;
            Value value = args[i].variable ? args[i].variable->value : std::move(args[i].own);
            m_locals[i].value = convert(withBooleanWord(std::move(value), type), type);
        }
        executeAll(procedure.body);
        if (procedure.result.base == BaseType::None)
            return {};
        if (!kernel::hasValue(m_result))
            return freshValue(procedure.result);
        return convert(std::move(m_result), procedure.result);
    } catch (const ScriptError&) {
        throw;
    } catch (const CommandError& error) {
        throw located(error);
    }
}

Evaluator::Flow Evaluator::executeAll(const StmtList& statements, std::size_t first)
{
    for (std::size_t i = first; i < statements.size(); ++i) {
        const Flow flow = execute(*statements[i]);
        if (flow != Flow::Next)
            return flow;
    }
    return Flow::Next;
}

Evaluator::Flow Evaluator::execute(const Stmt& statement)
{
    if (isStackShort())
        throw CommandError(kTooDeep);
    m_at = statement.at;
    switch (statement.kind) {
    case StmtKind::Empty: return Flow::Next;
    case StmtKind::Expression: discard(*static_cast<const ExpressionStmt&>(statement).expression); return Flow::Next;
    case StmtKind::Declaration: declare(static_cast<const DeclarationStmt&>(statement)); return Flow::Next;
    case StmtKind::Block: return executeAll(static_cast<const BlockStmt&>(statement).statements);
    case StmtKind::If: return executeIf(static_cast<const IfStmt&>(statement));
    case StmtKind::While:
    case StmtKind::DoWhile: return executeWhile(static_cast<const WhileStmt&>(statement));
    case StmtKind::For: return executeFor(static_cast<const ForStmt&>(statement));
    case StmtKind::ForIn: return executeForIn(static_cast<const ForInStmt&>(statement));
    case StmtKind::Switch: return executeSwitch(static_cast<const SwitchStmt&>(statement));
    case StmtKind::Break: return Flow::Break;
    case StmtKind::Continue: return Flow::Continue;
    case StmtKind::Return: {
        const auto& value = static_cast<const ReturnStmt&>(statement).value;
        m_result = value ? evaluate(*value) : Value();
        return Flow::Return;
    }
    case StmtKind::Procedure: define(static_cast<const ProcedureStmt&>(statement)); return Flow::Next;
    }
    return Flow::Next;
}

// An assignment as a statement needs no copy of the value it assigned, which may be a large array.
void Evaluator::discard(const Expr& expression)
{
    if (expression.kind == ExprKind::Assign)
        assign(static_cast<const AssignExpr&>(expression));
    else
        evaluate(expression);
}

void Evaluator::define(const ProcedureStmt& procedure)
{
    if (procedure.isGlobal)
        m_interpreter.define(procedure.name, {m_unit, &procedure});
    else
        m_unit->localProcedures[procedure.name] = &procedure;
}

void Evaluator::declare(const DeclarationStmt& declaration)
{
    for (const Declarator& declarator : declaration.declarators)
        declare(declarator, declaration.isGlobal);
}

// A declaration met again keeps the value unless it brings one; that of a global is set once, before the text runs.
void Evaluator::declare(const Declarator& declarator, bool isGlobal)
{
    Variable& target = variable(*declarator.variable);
    if (declarator.isFirst)
        target = Variable();
    if (target.type.base == BaseType::None) {
        target = freshVariable(declarator.type, std::size_t(declarator.size), std::size_t(declarator.columns));
    } else if (target.type != declarator.type) {
        throw CommandError("Invalid redeclaration of variable \"$" + declarator.variable->name
                           + "\" as a different type.");
    }
    if (declarator.initialiser && !isGlobal)
        storeIn(target, evaluate(*declarator.initialiser));
}

void Evaluator::initialiseGlobal(const Declarator& declarator)
{
    m_at = declarator.variable->at;
    try {
        declare(declarator, true);
        storeIn(m_interpreter.declareGlobal(declarator.variable->name), evaluate(*declarator.initialiser));
    } catch (const ScriptError&) {
        throw;
    } catch (const CommandError& error) {
        throw located(error);
    }
}

Evaluator::Flow Evaluator::executeIf(const IfStmt& statement)
{
    for (const IfStmt::Branch& branch : statement.branches) {
        if (!branch.test || isTrue(evaluate(*branch.test)))
            return execute(*branch.body);
    }
    return Flow::Next;
}

Evaluator::Flow Evaluator::executeWhile(const WhileStmt& loop)
{
    bool again = loop.kind == StmtKind::DoWhile || isTrue(evaluate(*loop.test));
    while (again) {
        const Flow flow = execute(*loop.body);
        if (flow == Flow::Break)
            break;
        if (flow == Flow::Return)
            return flow;
        m_at = loop.at;
        again = isTrue(evaluate(*loop.test));
    }
    return Flow::Next;
}

Evaluator::Flow Evaluator::executeFor(const ForStmt& loop)
{
    executeAll(loop.start);
    while (!loop.test || isTrue(evaluate(*loop.test))) {
        const Flow flow = execute(*loop.body);
        if (flow == Flow::Break)
            break;
        if (flow == Flow::Return)
            return flow;
        m_at = loop.at;
        for (const ExprPtr& step : loop.steps)
            discard(*step);
    }
    return Flow::Next;
}

Evaluator::Flow Evaluator::executeForIn(const ForInStmt& loop)
{
    Value source = evaluate(*loop.source);
    if (!kernel::isArray(source))
        failConversion(typeOf(source), {typeOf(source).base, true});
    Variable& element = variable(*loop.variable);
    if (loop.type.base != BaseType::None)
        element = freshVariable(loop.type);
    return visitArray(source, [&](const auto& elements) {
        for (const auto& value : elements) {
            store(*loop.variable, value);
            const Flow flow = execute(*loop.body);
            if (flow == Flow::Break)
                break;
            if (flow == Flow::Return)
                return flow;
        }
        return Flow::Next;
    });
}

Evaluator::Flow Evaluator::executeSwitch(const SwitchStmt& statement)
{
    const Value subject = evaluate(*statement.subject);
    std::optional<std::size_t> first;
    for (const SwitchStmt::Case& one : statement.cases) {
        if (one.value && isTrue(applied(BinaryOp::Equal, subject, evaluate(*one.value)))) {
            first = one.first;
            break;
        }
    }
    for (const SwitchStmt::Case& one : statement.cases) {
        if (!first && !one.value)
            first = one.first;
    }
    if (!first)
        return Flow::Next;
    const Flow flow = executeAll(statement.statements, *first);
    return flow == Flow::Break ? Flow::Next : flow;
}

Value Evaluator::evaluate(const Expr& expression)
{
    if (isStackShort())
        throw CommandError(kTooDeep);
    switch (expression.kind) {
    case ExprKind::Literal: return static_cast<const LiteralExpr&>(expression).value;
    case ExprKind::Variable: return read(static_cast<const VariableExpr&>(expression));
    case ExprKind::Not: return int(!isTrue(evaluate(*static_cast<const UnaryExpr&>(expression).operand)));
    case ExprKind::Negate: return negated(evaluate(*static_cast<const UnaryExpr&>(expression).operand));
    case ExprKind::Step: return step(static_cast<const StepExpr&>(expression));
    case ExprKind::Chain: return chain(static_cast<const ChainExpr&>(expression));
    case ExprKind::Logical: return logical(static_cast<const LogicalExpr&>(expression));
    case ExprKind::Conditional: {
        const auto& choice = static_cast<const ConditionalExpr&>(expression);
        return evaluate(isTrue(evaluate(*choice.test)) ? *choice.yes : *choice.no);
    }
    case ExprKind::Assign: {
        const auto& assignment = static_cast<const AssignExpr&>(expression);
        assign(assignment);
        return read(*assignment.target);
    }
    case ExprKind::Cast: {
        const auto& cast = static_cast<const CastExpr&>(expression);
        return convert(evaluate(*cast.operand), cast.type);
    }
    case ExprKind::Call: return call(static_cast<const CallExpr&>(expression));
    case ExprKind::Array: return array(static_cast<const ArrayExpr&>(expression));
    case ExprKind::Vector: {
        const auto& components = static_cast<const VectorExpr&>(expression).components;
        const double x = asNumber(evaluate(*components[0]));
        const double y = asNumber(evaluate(*components[1]));
        return kernel::Vector3{x, y, asNumber(evaluate(*components[2]))};
    }
    case ExprKind::Matrix: {
        kernel::DoubleArray elements;
        for (const ExprPtr& element : static_cast<const MatrixExpr&>(expression).elements)
            elements.push_back(asNumber(evaluate(*element)));
        return elements;
    }
    case ExprKind::Catch: return catchError(static_cast<const CatchExpr&>(expression));
    }
    return {};
}

Value Evaluator::chain(const ChainExpr& expression)
{
    Value value = evaluate(*expression.first);
    for (const ChainExpr::Link& link : expression.links) {
        const Value right = evaluate(*link.operand);
        m_at = link.operand->at;
        value = applied(link.op, std::move(value), right);
    }
    return value;
}

Value Evaluator::logical(const LogicalExpr& expression)
{
    for (const ExprPtr& operand : expression.operands) {
        if (isTrue(evaluate(*operand)) != expression.isAnd)
            return int(!expression.isAnd);
    }
    return int(expression.isAnd);
}

// Whole numbers among floats become floats; apart from that the elements must be of one type.
Value Evaluator::array(const ArrayExpr& expression)
{
    kernel::ValueList elements;
    Type type;
    for (const ExprPtr& element : expression.elements) {
        elements.push_back(evaluate(*element));
        const Type own = typeOf(elements.back());
        if (own.array || own.base == BaseType::None)
            failConversion(own, type.base == BaseType::None ? Type{BaseType::Int, false} : type);
        const bool mixesNumbers = (type.base == BaseType::Int && own.base == BaseType::Float)
                               || (type.base == BaseType::Float && own.base == BaseType::Int);
        if (type.base == BaseType::None || mixesNumbers)
            type = mixesNumbers ? Type{BaseType::Float, false} : own;
        else if (type != own)
            failConversion(own, type);
    }
    Value result = freshValue({type.base == BaseType::None ? BaseType::Int : type.base, true});
    visitArray(result, [&](auto& array) {
        using Element = typename std::decay_t<decltype(array)>::value_type;
        array.reserve(elements.size());
        for (Value& element : elements)
            array.push_back(std::get<Element>(converted(std::move(element), type)));
    });
    return result;
}

Value Evaluator::catchError(const CatchExpr& expression)
{
    std::optional<kernel::Output::Mute> mute;
    if (expression.quiet)
        mute.emplace(m_interpreter.session().output);
    try {
        evaluate(*expression.operand);
        return 0;
    } catch (const ScriptError& error) {
        m_interpreter.report(error);
    } catch (const CommandError& error) {
        m_interpreter.report(located(error));
    }
    return 1;
}

Variable& Evaluator::variable(const VariableExpr& expression)
{
    if (expression.slot >= 0)
        return *m_slots[expression.slot];
    if (!expression.global)
        expression.global = &m_interpreter.declareGlobal(expression.name);
    return *expression.global;
}

Value Evaluator::read(const VariableExpr& expression)
{
    const Variable& source = variable(expression);
    if (expression.isWhole())
        return source.value;
    Value value = expression.indices.empty() ? source.value : readElement(source, indices(expression));
    return expression.component < 0 ? value : component(value, expression.component);
}

Indices Evaluator::indices(const VariableExpr& expression)
{
    Indices indices;
    for (const ExprPtr& index : expression.indices) {
        const int number = asInteger(evaluate(*index));
        if (number < 0)
            throw CommandError("Array index " + std::to_string(number) + " is out of range.");
        indices.push_back(std::size_t(number));
    }
    return indices;
}

void Evaluator::assign(const AssignExpr& assignment)
{
    Value value = evaluate(*assignment.value);
    const VariableExpr& target = *assignment.target;
    if (assignment.compound) {
        Variable& whole = variable(target);
        // Texts grow in place, so that a loop of appends stays linear.
        if (target.isWhole() && assignment.op == BinaryOp::Add && std::holds_alternative<std::string>(whole.value)) {
            std::get<std::string>(whole.value) += asText(value);
            return;
        }
        value = applied(assignment.op, read(target), value);
    }
    store(target, std::move(value));
}

Value Evaluator::step(const StepExpr& expression)
{
    const Value before = read(*expression.target);
    const Value after = applied(BinaryOp::Add, before, expression.step);
    store(*expression.target, after);
    return expression.prefix ? after : before;
}

void Evaluator::store(const VariableExpr& target, Value value)
{
    Variable& whole = variable(target);
    if (target.indices.empty()) {
        // Met again in a loop, the declaring assignment of a local makes it anew; a global's type never changes.
        if (target.declares && target.slot >= 0)
            whole = Variable();
        return storeIn(whole, std::move(value));
    }
    adoptType(whole, value, true);
    const Indices places = indices(target);
    writeElement(whole, places, convert(std::move(value), elementType(whole.type)));
}

void Evaluator::storeIn(Variable& target, Value value)
{
    adoptType(target, value, false);
    writeWhole(target, convert(std::move(value), target.type));
}

Value Evaluator::convert(Value value, Type type)
{
    bool hadNumber = true;
    const bool mayWarn = std::holds_alternative<std::string>(value) && type.base != BaseType::String;
    const std::string text = mayWarn ? std::get<std::string>(value) : std::string();
    Value result = converted(std::move(value), type, &hadNumber);
    if (mayWarn && !hadNumber) {
        m_interpreter.session().output.warning(m_unit->source->messagePrefix(m_at) + "Converting string \"" + text
                                               + "\" to a value of 0.");
    }
    return result;
}

// Names are bound at the moment of the call: the text's own procedures, global ones, functions, commands, and last
// a script file of that name.
Value Evaluator::call(const CallExpr& expression)
{
    const std::string& name = expression.name;
    if (const Procedure procedure = m_interpreter.findProcedure(name, m_unit))
        return callProcedure(procedure, expression);
    const auto function = m_interpreter.functions().find(name);
    if (function != m_interpreter.functions().end())
        return callFunction(function->second, expression);
    if (!m_interpreter.session().commands.find(name) && !m_interpreter.findScript(name).empty()) {
        m_interpreter.source(name);
        if (const Procedure procedure = m_interpreter.findProcedure(name, m_unit))
            return callProcedure(procedure, expression);
    }
    return callCommand(expression);
}

Value Evaluator::callProcedure(const Procedure& procedure, const CallExpr& expression)
{
    std::vector<Argument> args = arguments(expression);
    m_at = expression.at;
    if (args.size() != procedure.definition->parameters.size())
        throw CommandError("Wrong number of arguments on call to " + expression.name + ".");
    const Interpreter::Call depth(m_interpreter, expression.name);
    Evaluator callee(m_interpreter, procedure.unit, procedure.definition->frameSize);
    return callee.runProcedure(*procedure.definition, args);
}

Value Evaluator::callFunction(const Function& function, const CallExpr& expression)
{
    std::vector<Argument> args = arguments(expression);
    m_at = expression.at;
    if (args.size() < function.minArgs || args.size() > function.maxArgs)
        throw CommandError("Wrong number of arguments on call to " + expression.name + ".");
    FunctionCall call{m_interpreter, expression.name, *m_unit->source, m_at, args};
    return function.run(call);
}

Value Evaluator::callCommand(const CallExpr& expression)
{
    const kernel::ValueList args = spreadArguments(expression);
    m_at = expression.at;
    return kernel::runCommand(m_interpreter.session(), expression.name, args);
}

std::vector<Argument> Evaluator::arguments(const CallExpr& expression)
{
    std::vector<Argument> args;
    args.reserve(expression.args.size());
    for (const ExprPtr& arg : expression.args) {
        Argument argument;
        if (arg->kind == ExprKind::Variable && static_cast<const VariableExpr&>(*arg).isWhole())
            argument.variable = &variable(static_cast<const VariableExpr&>(*arg));
        else
            argument.own = evaluate(*arg);
        args.push_back(std::move(argument));
    }
    return args;
}

// A command sees single values: arrays give one argument per element, a vector three numbers.
kernel::ValueList Evaluator::spreadArguments(const CallExpr& expression)
{
    kernel::ValueList args;
    args.reserve(expression.args.size());
    for (const ExprPtr& arg : expression.args) {
        Value value = evaluate(*arg);
        if (const auto* vector = std::get_if<kernel::Vector3>(&value)) {
            args.insert(args.end(), {vector->x, vector->y, vector->z});
        } else if (auto* vectors = std::get_if<kernel::VectorArray>(&value)) {
            for (const kernel::Vector3& v : *vectors)
                args.insert(args.end(), {v.x, v.y, v.z});
        } else if (kernel::isArray(value)) {
            visitArray(value, [&](auto& elements) { args.insert(args.end(), elements.begin(), elements.end()); });
        } else if (kernel::hasValue(value)) {
            args.push_back(std::move(value));
        }
    }
    return args;
}

}  // namespace mel
