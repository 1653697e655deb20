#include "mel/ExpressionParser.h"

#include "mel/ArgumentParser.h"
#include "mel/Stack.h"

#include <utility>

namespace mel {

namespace {

struct ChainOperator {
    BinaryOp op;
    int level;  ///< higher binds tighter; -1 for tokens that are no such operator
};

ChainOperator chainOperator(Tok token)
{
    switch (token) {
    case Tok::Equal: return {BinaryOp::Equal, 0};
    case Tok::NotEqual: return {BinaryOp::NotEqual, 0};
    case Tok::Less: return {BinaryOp::Less, 1};
    case Tok::LessEqual: return {BinaryOp::LessEqual, 1};
    case Tok::Greater: return {BinaryOp::Greater, 1};
    case Tok::GreaterEqual: return {BinaryOp::GreaterEqual, 1};
    case Tok::Plus: return {BinaryOp::Add, 2};
    case Tok::Minus: return {BinaryOp::Subtract, 2};
    case Tok::Times: return {BinaryOp::Multiply, 3};
    case Tok::Divide: return {BinaryOp::Divide, 3};
    case Tok::Modulo: return {BinaryOp::Modulo, 3};
    case Tok::Cross: return {BinaryOp::Cross, 3};
    default: return {BinaryOp::Add, -1};
    }
}

// The operator behind +=, -= and so on.
const std::pair<Tok, BinaryOp> kAssignments[] = {
    {Tok::PlusAssign, BinaryOp::Add},       {Tok::MinusAssign, BinaryOp::Subtract},
    {Tok::TimesAssign, BinaryOp::Multiply}, {Tok::DivideAssign, BinaryOp::Divide},
    {Tok::ModuloAssign, BinaryOp::Modulo},  {Tok::CrossAssign, BinaryOp::Cross},
};

}  // namespace

BaseType typeOfWord(Tok kind)
{
    switch (kind) {
    case Tok::IntType: return BaseType::Int;
    case Tok::FloatType: return BaseType::Float;
    case Tok::StringType: return BaseType::String;
    case Tok::VectorType: return BaseType::Vector;
    case Tok::MatrixType: return BaseType::Matrix;
    default: return BaseType::None;
    }
}

void ExpressionParser::rejectDepth() const
{
    if (isStackShort())
        m_tokens.fail(kTooDeep);
}

ExprPtr ExpressionParser::parseExpression()
{
    rejectDepth();
    ExprPtr left = parseConditional();
    const Tok op = m_tokens.kind();
    if (op == Tok::Assign) {
        auto target = asVariable(std::move(left));
        m_tokens.advance();
        return std::make_unique<AssignExpr>(std::move(target), parseExpression());
    }
    for (const auto& row : kAssignments) {
        if (row.first != op)
            continue;
        auto target = asVariable(std::move(left));
        m_tokens.advance();
        auto assign = std::make_unique<AssignExpr>(std::move(target), parseExpression());
        assign->compound = true;
        assign->op = row.second;
        return assign;
    }
    return left;
}

// Only a variable or one of its elements can be assigned to; a component of a vector cannot.
std::unique_ptr<VariableExpr> ExpressionParser::asVariable(ExprPtr expression) const
{
    if (expression->kind != ExprKind::Variable || static_cast<VariableExpr&>(*expression).component >= 0)
        m_tokens.fail();
    return std::unique_ptr<VariableExpr>(static_cast<VariableExpr*>(expression.release()));
}

ExprPtr ExpressionParser::parseConditional()
{
    ExprPtr test = parseLogical(Tok::Or);
    if (!m_tokens.accept(Tok::Question))
        return test;
    rejectDepth();
    ExprPtr yes = parseExpression();
    m_tokens.expect(Tok::Colon);
    ExprPtr no = parseConditional();
    return std::make_unique<ConditionalExpr>(std::move(test), std::move(yes), std::move(no));
}

ExprPtr ExpressionParser::parseLogical(Tok op)
{
    const auto operand = [&] { return op == Tok::Or ? parseLogical(Tok::And) : parseChain(0); };
    ExprPtr first = operand();
    if (!m_tokens.is(op))
        return first;
    auto logical = std::make_unique<LogicalExpr>(op == Tok::And, std::move(first));
    while (m_tokens.accept(op))
        logical->operands.push_back(operand());
    return logical;
}

// Operators of one level are taken from left to right into one list; a tighter one belongs to the operand.
ExprPtr ExpressionParser::parseChain(int lowestLevel)
{
    ExprPtr left = parseUnary();
    ChainExpr* chain = nullptr;
    int chainLevel = -1;
    for (;;) {
        const ChainOperator next = chainOperator(m_tokens.kind());
        if (next.level < lowestLevel)
            return left;
        if (next.level != chainLevel) {
            auto outer = std::make_unique<ChainExpr>(std::move(left));
            chain = outer.get();
            chainLevel = next.level;
            left = std::move(outer);
        }
        m_tokens.advance();
        chain->links.push_back({next.op, parseChain(next.level + 1)});
    }
}

ExprPtr ExpressionParser::parseUnary()
{
    rejectDepth();
    const std::size_t at = m_tokens.at();
    if (m_tokens.accept(Tok::Not))
        return std::make_unique<UnaryExpr>(ExprKind::Not, at, parseUnary());
    if (m_tokens.accept(Tok::Minus))
        return std::make_unique<UnaryExpr>(ExprKind::Negate, at, parseUnary());
    if (m_tokens.is(Tok::Increment) || m_tokens.is(Tok::Decrement)) {
        const int step = m_tokens.is(Tok::Increment) ? 1 : -1;
        m_tokens.advance();
        return std::make_unique<StepExpr>(at, asVariable(parsePrimary()), step, true);
    }
    ExprPtr operand = parsePrimary();
    if (operand->kind == ExprKind::Variable && (m_tokens.is(Tok::Increment) || m_tokens.is(Tok::Decrement))) {
        const int step = m_tokens.is(Tok::Increment) ? 1 : -1;
        operand = std::make_unique<StepExpr>(at, asVariable(std::move(operand)), step, false);
        m_tokens.advance();
    }
    return operand;
}

ExprPtr ExpressionParser::parsePrimary()
{
    switch (m_tokens.kind()) {
    case Tok::Integer:
    case Tok::Float: return parseNumber();
    case Tok::True:
    case Tok::False: return parseBoolean();
    case Tok::String: return parseString();
    case Tok::Variable: return parseVariable();
    case Tok::LeftParen: return parseParentheses();
    case Tok::Identifier: return parseName();
    case Tok::Backquote: return parseBackquotes();
    case Tok::LeftBrace: return parseArray();
    case Tok::LeftAngles: return parseAngles();
    case Tok::Catch:
    case Tok::CatchQuiet: return parseCatch();
    default: break;
    }
    const BaseType type = typeOfWord(m_tokens.kind());
    if (type == BaseType::None)
        m_tokens.fail();
    const std::size_t at = m_tokens.at();
    m_tokens.advance();
    if (!m_tokens.is(Tok::LeftParen))
        m_tokens.fail();
    return std::make_unique<CastExpr>(at, Type{type, false}, parseParentheses());
}

ExprPtr ExpressionParser::parseNumber()
{
    auto literal = std::make_unique<LiteralExpr>(m_tokens.at(), m_tokens.lexer().numberValue(m_tokens.token()));
    m_tokens.advance();
    return literal;
}

ExprPtr ExpressionParser::parseBoolean()
{
    auto literal = std::make_unique<LiteralExpr>(m_tokens.at(), int(m_tokens.is(Tok::True)));
    m_tokens.advance();
    return literal;
}

ExprPtr ExpressionParser::parseString()
{
    auto literal = std::make_unique<LiteralExpr>(m_tokens.at(), m_tokens.lexer().stringContent(m_tokens.token()));
    m_tokens.advance();
    return literal;
}

std::unique_ptr<VariableExpr> ExpressionParser::parseVariable()
{
    if (!m_tokens.is(Tok::Variable))
        m_tokens.fail();
    auto variable = std::make_unique<VariableExpr>(m_tokens.at(), m_tokens.variableName());
    m_tokens.advance();
    while (variable->indices.size() < 2 && m_tokens.accept(Tok::LeftBracket)) {
        variable->indices.push_back(parseExpression());
        m_tokens.expect(Tok::RightBracket);
    }
    if (m_tokens.is(Tok::Dot) && m_tokens.isAdjacent()) {
        m_tokens.advance();
        const std::string component = m_tokens.text();
        if (!m_tokens.is(Tok::Identifier) || component.size() != 1 || component[0] < 'x' || component[0] > 'z')
            m_tokens.fail();
        variable->component = component[0] - 'x';
        m_tokens.advance();
    }
    return variable;
}

ExprPtr ExpressionParser::parseParentheses()
{
    const std::size_t at = m_tokens.at();
    m_tokens.expect(Tok::LeftParen);
    const BaseType type = typeOfWord(m_tokens.kind());
    if (type != BaseType::None) {
        const Token word = m_tokens.token();
        m_tokens.advance();
        if (m_tokens.accept(Tok::RightParen))
            return std::make_unique<CastExpr>(at, Type{type, false}, parseUnary());
        m_tokens.seek(word.begin);
    }
    ExprPtr inner = parseExpression();
    m_tokens.expect(Tok::RightParen);
    return inner;
}

ExprPtr ExpressionParser::parseName()
{
    const Token name = m_tokens.token();
    m_tokens.advance();
    if (!m_tokens.is(Tok::LeftParen))
        throw SyntaxError("Invalid use of Maya object \"" + std::string(m_tokens.lexer().text(name)) + "\".",
                          name.begin);
    return parseCall(name);
}

ExprPtr ExpressionParser::parseCall(const Token& name)
{
    auto call = std::make_unique<CallExpr>(name.begin, std::string(m_tokens.lexer().text(name)));
    m_tokens.expect(Tok::LeftParen);
    call->args = parseList(Tok::RightParen);
    return call;
}

std::vector<ExprPtr> ExpressionParser::parseList(Tok end)
{
    std::vector<ExprPtr> list;
    if (m_tokens.accept(end))
        return list;
    do {
        list.push_back(parseExpression());
    } while (m_tokens.accept(Tok::Comma));
    m_tokens.expect(end);
    return list;
}

ExprPtr ExpressionParser::parseArray()
{
    auto array = std::make_unique<ArrayExpr>(m_tokens.at());
    m_tokens.advance();
    array->elements = parseList(Tok::RightBrace);
    return array;
}

ExprPtr ExpressionParser::parseAngles()
{
    const std::size_t at = m_tokens.at();
    m_tokens.advance();
    std::vector<ExprPtr> row;
    do {
        row.push_back(parseExpression());
    } while (m_tokens.accept(Tok::Comma));
    if (m_tokens.is(Tok::Semicolon))
        return parseMatrix(at, std::move(row));
    if (row.size() != 3)
        m_tokens.fail();
    m_tokens.expect(Tok::RightAngles);
    auto vector = std::make_unique<VectorExpr>(at);
    for (int i = 0; i < 3; ++i)
        vector->components[i] = std::move(row[i]);
    return vector;
}

ExprPtr ExpressionParser::parseMatrix(std::size_t at, std::vector<ExprPtr> firstRow)
{
    auto matrix = std::make_unique<MatrixExpr>(at);
    matrix->columns = unsigned(firstRow.size());
    matrix->elements = std::move(firstRow);
    while (m_tokens.accept(Tok::Semicolon)) {
        if (m_tokens.is(Tok::RightAngles))
            break;
        unsigned columns = 0;
        do {
            matrix->elements.push_back(parseExpression());
            ++columns;
        } while (m_tokens.accept(Tok::Comma));
        if (columns != matrix->columns)
            m_tokens.fail();
    }
    m_tokens.expect(Tok::RightAngles);
    return matrix;
}

ExprPtr ExpressionParser::parseCatch()
{
    const std::size_t at = m_tokens.at();
    const bool quiet = m_tokens.is(Tok::CatchQuiet);
    m_tokens.advance();
    if (m_tokens.is(Tok::Backquote))
        return std::make_unique<CatchExpr>(at, quiet, parseBackquotes());
    m_tokens.expect(Tok::LeftParen);
    ExprPtr operand = parseExpression();
    m_tokens.expect(Tok::RightParen);
    return std::make_unique<CatchExpr>(at, quiet, std::move(operand));
}

ExprPtr ExpressionParser::parseBackquotes()
{
    // Looking ahead from each level of many would take quadratic time.
    constexpr int kMostLevels = 32;
    if (m_backquotes >= kMostLevels)
        m_tokens.fail(kTooDeep);
    ++m_backquotes;
    m_tokens.advance();
    if (!m_tokens.is(Tok::Identifier))
        m_tokens.fail();
    ExprPtr command = isCallSyntax(m_tokens) ? parseName() : ArgumentParser(m_tokens, *this).parseCommand(true);
    m_tokens.accept(Tok::Semicolon);
    m_tokens.expect(Tok::Backquote);
    --m_backquotes;
    return command;
}

ExprPtr ExpressionParser::parseCallStatement()
{
    return isCallSyntax(m_tokens) ? parseExpression() : ArgumentParser(m_tokens, *this).parseCommand(false);
}

}  // namespace mel
