#include "mel/Parser.h"

#include "mel/Source.h"
#include "mel/Stack.h"
#include "mel/Variables.h"

#include <utility>
#include <variant>

namespace mel {

Parser::Parser(std::shared_ptr<const Source> source)
    : m_source(std::move(source)), m_tokens(m_source->text()), m_expressions(m_tokens)
{}

std::shared_ptr<Unit> Parser::parse()
{
    auto unit = std::make_shared<Unit>();
    unit->source = m_source;
    while (!m_tokens.is(Tok::End))
        unit->statements.push_back(parseItem());
    return unit;
}

// Procedures stand at the top level only.
StmtPtr Parser::parseItem()
{
    if (m_tokens.is(Tok::Proc))
        return parseProcedure();
    if (m_tokens.is(Tok::Global)) {
        const std::size_t at = m_tokens.at();
        m_tokens.advance();
        const bool isProcedure = m_tokens.is(Tok::Proc);
        m_tokens.seek(at);
        if (isProcedure)
            return parseProcedure();
    }
    return parseStatement();
}

StmtPtr Parser::parseStatement()
{
    if (isStackShort())
        m_tokens.fail(kTooDeep);
    switch (m_tokens.kind()) {
    case Tok::Semicolon: {
        auto empty = std::make_unique<PlainStmt>(StmtKind::Empty, m_tokens.at());
        m_tokens.advance();
        return empty;
    }
    case Tok::LeftBrace: return parseBlock();
    case Tok::If: return parseIf();
    case Tok::While: return parseWhile();
    case Tok::Do: return parseDoWhile();
    case Tok::For: return parseFor();
    case Tok::Switch: return parseSwitch();
    case Tok::Return: return parseReturn();
    case Tok::Break: return parsePlain(StmtKind::Break);
    case Tok::Continue: return parsePlain(StmtKind::Continue);
    default: break;
    }
    if (!startsDeclaration())
        return parseExpressionStatement();
    StmtPtr declaration = parseDeclaration();
    endStatement();
    return declaration;
}

// `int $n` declares, `int(7.9)` converts.
bool Parser::startsDeclaration()
{
    if (m_tokens.is(Tok::Global))
        return true;
    if (typeOfWord(m_tokens.kind()) == BaseType::None)
        return false;
    const std::size_t at = m_tokens.at();
    m_tokens.advance();
    const bool isVariable = m_tokens.is(Tok::Variable);
    m_tokens.seek(at);
    return isVariable;
}

// The very last statement of a text may lack its semicolon.
void Parser::endStatement()
{
    if (!m_tokens.is(Tok::End))
        m_tokens.expect(Tok::Semicolon);
}

StmtPtr Parser::parseExpressionStatement()
{
    ExprPtr expression =
        m_tokens.is(Tok::Identifier) ? m_expressions.parseCallStatement() : m_expressions.parseExpression();
    endStatement();
    return std::make_unique<ExpressionStmt>(std::move(expression));
}

StmtPtr Parser::parseProcedure()
{
    auto procedure = std::make_unique<ProcedureStmt>(m_tokens.at());
    procedure->isGlobal = m_tokens.accept(Tok::Global);
    m_tokens.expect(Tok::Proc);
    procedure->result.base = typeOfWord(m_tokens.kind());
    if (procedure->result.base != BaseType::None) {
        m_tokens.advance();
        if (m_tokens.accept(Tok::LeftBracket)) {
            m_tokens.expect(Tok::RightBracket);
            procedure->result.array = true;
        }
    }
    if (!m_tokens.is(Tok::Identifier))
        m_tokens.fail();
    procedure->name = m_tokens.text();
    m_tokens.advance();
    m_tokens.expect(Tok::LeftParen);
    if (!m_tokens.is(Tok::RightParen)) {
        do {
            procedure->parameters.push_back(parseParameter());
        } while (m_tokens.accept(Tok::Comma));
    }
    m_tokens.expect(Tok::RightParen);
    m_tokens.expect(Tok::LeftBrace);
    procedure->body = parseStatementsUntilBrace();
    return procedure;
}

Parameter Parser::parseParameter()
{
    Parameter parameter;
    parameter.type.base = typeOfWord(m_tokens.kind());
    if (parameter.type.base == BaseType::None)
        m_tokens.fail();
    m_tokens.advance();
    if (!m_tokens.is(Tok::Variable))
        m_tokens.fail();
    parameter.at = m_tokens.at();
    parameter.name = m_tokens.variableName();
    m_tokens.advance();
    if (m_tokens.accept(Tok::LeftBracket)) {
        m_tokens.expect(Tok::RightBracket);
        parameter.type.array = true;
    }
    return parameter;
}

StmtPtr Parser::parseDeclaration()
{
    auto declaration = std::make_unique<DeclarationStmt>(m_tokens.at());
    declaration->isGlobal = m_tokens.accept(Tok::Global);
    const BaseType base = typeOfWord(m_tokens.kind());
    if (base == BaseType::None)
        m_tokens.fail();
    m_tokens.advance();
    do {
        declaration->declarators.push_back(parseDeclarator(base));
    } while (m_tokens.accept(Tok::Comma));
    return declaration;
}

Declarator Parser::parseDeclarator(BaseType base)
{
    if (!m_tokens.is(Tok::Variable))
        m_tokens.fail();
    Declarator declarator;
    declarator.type.base = base;
    declarator.variable = std::make_unique<VariableExpr>(m_tokens.at(), m_tokens.variableName());
    m_tokens.advance();
    if (m_tokens.accept(Tok::LeftBracket)) {
        declarator.size = parseSize();
        if (base != BaseType::Matrix)
            declarator.type.array = true;
        else if (m_tokens.accept(Tok::LeftBracket))
            declarator.columns = parseSize();
    }
    if (base == BaseType::Matrix && (declarator.size <= 0 || declarator.columns <= 0))
        m_tokens.fail();
    if (std::size_t(declarator.size) * std::size_t(declarator.columns) > kMostElements)
        m_tokens.fail("A matrix cannot have so many elements.");
    if (m_tokens.accept(Tok::Assign))
        declarator.initialiser = m_expressions.parseExpression();
    return declarator;
}

int Parser::parseSize()
{
    int size = 0;
    if (m_tokens.is(Tok::Integer)) {
        const kernel::Value number = m_tokens.lexer().numberValue(m_tokens.token());
        if (!std::holds_alternative<int>(number) || std::size_t(std::get<int>(number)) > kMostElements)
            m_tokens.fail();
        size = std::get<int>(number);
        m_tokens.advance();
    }
    m_tokens.expect(Tok::RightBracket);
    return size;
}

StmtPtr Parser::parseBlock()
{
    auto block = std::make_unique<BlockStmt>(m_tokens.at());
    m_tokens.expect(Tok::LeftBrace);
    block->statements = parseStatementsUntilBrace();
    return block;
}

StmtList Parser::parseStatementsUntilBrace()
{
    StmtList statements;
    while (!m_tokens.accept(Tok::RightBrace)) {
        if (m_tokens.is(Tok::End))
            m_tokens.fail();
        statements.push_back(parseStatement());
    }
    return statements;
}

ExprPtr Parser::parseTest()
{
    m_tokens.expect(Tok::LeftParen);
    ExprPtr test = m_expressions.parseExpression();
    m_tokens.expect(Tok::RightParen);
    return test;
}

StmtPtr Parser::parseIf()
{
    auto statement = std::make_unique<IfStmt>(m_tokens.at());
    do {
        m_tokens.expect(Tok::If);
        ExprPtr test = parseTest();
        statement->branches.push_back({std::move(test), parseStatement()});
        if (!m_tokens.accept(Tok::Else))
            return statement;
    } while (m_tokens.is(Tok::If));
    statement->branches.push_back({nullptr, parseStatement()});
    return statement;
}

StmtPtr Parser::parseWhile()
{
    auto loop = std::make_unique<WhileStmt>(StmtKind::While, m_tokens.at());
    m_tokens.expect(Tok::While);
    loop->test = parseTest();
    loop->body = parseStatement();
    return loop;
}

StmtPtr Parser::parseDoWhile()
{
    auto loop = std::make_unique<WhileStmt>(StmtKind::DoWhile, m_tokens.at());
    m_tokens.expect(Tok::Do);
    loop->body = parseStatement();
    m_tokens.expect(Tok::While);
    loop->test = parseTest();
    endStatement();
    return loop;
}

StmtPtr Parser::parseFor()
{
    const std::size_t at = m_tokens.at();
    m_tokens.expect(Tok::For);
    m_tokens.expect(Tok::LeftParen);
    const std::size_t inside = m_tokens.at();
    const Type type{typeOfWord(m_tokens.kind()), false};
    if (type.base != BaseType::None)
        m_tokens.advance();
    if (m_tokens.is(Tok::Variable)) {
        const std::size_t variable = m_tokens.at();
        m_tokens.advance();
        if (m_tokens.is(Tok::In)) {
            m_tokens.seek(variable);
            return parseForIn(at, type);
        }
    }
    m_tokens.seek(inside);
    auto loop = std::make_unique<ForStmt>(at);
    if (type.base != BaseType::None) {
        loop->start.push_back(parseDeclaration());
        m_tokens.expect(Tok::Semicolon);
    } else {
        for (ExprPtr& expression : parseExpressions(Tok::Semicolon))
            loop->start.push_back(std::make_unique<ExpressionStmt>(std::move(expression)));
    }
    if (!m_tokens.is(Tok::Semicolon))
        loop->test = m_expressions.parseExpression();
    m_tokens.expect(Tok::Semicolon);
    loop->steps = parseExpressions(Tok::RightParen);
    loop->body = parseStatement();
    return loop;
}

std::vector<ExprPtr> Parser::parseExpressions(Tok end)
{
    std::vector<ExprPtr> list;
    if (m_tokens.accept(end))
        return list;
    do {
        list.push_back(m_expressions.parseExpression());
    } while (m_tokens.accept(Tok::Comma));
    m_tokens.expect(end);
    return list;
}

StmtPtr Parser::parseForIn(std::size_t at, Type type)
{
    auto loop = std::make_unique<ForInStmt>(at);
    loop->type = type;
    loop->variable = std::make_unique<VariableExpr>(m_tokens.at(), m_tokens.variableName());
    m_tokens.advance();
    m_tokens.expect(Tok::In);
    loop->source = m_expressions.parseExpression();
    m_tokens.expect(Tok::RightParen);
    loop->body = parseStatement();
    return loop;
}

StmtPtr Parser::parseSwitch()
{
    auto statement = std::make_unique<SwitchStmt>(m_tokens.at());
    m_tokens.expect(Tok::Switch);
    statement->subject = parseTest();
    m_tokens.expect(Tok::LeftBrace);
    while (!m_tokens.accept(Tok::RightBrace)) {
        if (m_tokens.accept(Tok::Case)) {
            ExprPtr value = m_expressions.parseExpression();
            m_tokens.expect(Tok::Colon);
            statement->cases.push_back({std::move(value), statement->statements.size()});
        } else if (m_tokens.accept(Tok::Default)) {
            m_tokens.expect(Tok::Colon);
            statement->cases.push_back({nullptr, statement->statements.size()});
        } else if (statement->cases.empty() || m_tokens.is(Tok::End)) {
            m_tokens.fail();
        } else {
            statement->statements.push_back(parseStatement());
        }
    }
    return statement;
}

StmtPtr Parser::parseReturn()
{
    auto statement = std::make_unique<ReturnStmt>(m_tokens.at());
    m_tokens.expect(Tok::Return);
    if (!m_tokens.is(Tok::Semicolon) && !m_tokens.is(Tok::End))
        statement->value = m_expressions.parseExpression();
    endStatement();
    return statement;
}

StmtPtr Parser::parsePlain(StmtKind kind)
{
    auto statement = std::make_unique<PlainStmt>(kind, m_tokens.at());
    m_tokens.advance();
    endStatement();
    return statement;
}

}  // namespace mel
