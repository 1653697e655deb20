#include "mel/ArgumentParser.h"

#include <utility>

namespace mel {

// A name followed by "(" may be a call, `f($x) + 1`, or a command whose first argument is in parentheses,
// `move ($x) 0 0`. What follows the closing parenthesis decides.
bool isCallSyntax(TokenStream& tokens)
{
    if (!tokens.mayBeFollowedBy('('))
        return false;
    const std::size_t start = tokens.at();
    tokens.advance();
    bool isCall = false;
    if (tokens.is(Tok::LeftParen)) {
        unsigned depth = 0;
        bool isList = false;
        unsigned count = 0;
        do {
            const Tok kind = tokens.kind();
            if (kind == Tok::LeftParen || kind == Tok::LeftBrace || kind == Tok::LeftAngles)
                ++depth;
            else if (kind == Tok::RightParen || kind == Tok::RightBrace || kind == Tok::RightAngles)
                --depth;
            else if (kind == Tok::Comma && depth == 1)
                isList = true;
            ++count;
            tokens.advance();
        } while (depth > 0 && !tokens.is(Tok::End));
        if (count == 2)
            isList = true;
        const Tok after = tokens.kind();
        if (isList)
            isCall = true;
        else if (after == Tok::Minus) {
            // `setAttr ($a) -lock on` and `move ($x) -1 0` go on as commands.
            const bool spaceBefore = !tokens.isAdjacent();
            tokens.advance();
            isCall = !(spaceBefore && tokens.isAdjacent());
        } else {
            isCall = after == Tok::Semicolon || after == Tok::End || after == Tok::RightParen
                  || after == Tok::RightBracket || after == Tok::RightBrace || after == Tok::Comma
                  || after == Tok::Colon || after == Tok::Question || after == Tok::Backquote
                  || (after >= Tok::Plus && after <= Tok::Decrement && after != Tok::Not);
        }
    }
    tokens.seek(start);
    return isCall;
}

// Within backquotes the next one ends the command; elsewhere it starts an argument.
ExprPtr ArgumentParser::parseCommand(bool inBackquotes)
{
    auto call = std::make_unique<CallExpr>(m_tokens.at(), m_tokens.text());
    m_tokens.advanceToArgument();
    while (!m_tokens.is(Tok::Semicolon) && !m_tokens.is(Tok::End) && !(inBackquotes && m_tokens.is(Tok::Backquote)))
        call->args.push_back(parseArgument());
    return call;
}

ExprPtr ArgumentParser::parseArgument()
{
    switch (m_tokens.kind()) {
    case Tok::Flag: return literalArgument(m_tokens.text());
    case Tok::Integer:
    case Tok::Float: return literalArgument(m_tokens.lexer().numberValue(m_tokens.token()));
    case Tok::String: return literalArgument(m_tokens.lexer().stringContent(m_tokens.token()));
    case Tok::Word: return parseWord();
    default: break;
    }
    ExprPtr argument = parseComputedArgument();
    m_tokens.rereadAsArgument();
    return argument;
}

ExprPtr ArgumentParser::literalArgument(kernel::Value value)
{
    auto literal = std::make_unique<LiteralExpr>(m_tokens.at(), std::move(value));
    m_tokens.advanceToArgument();
    return literal;
}

ExprPtr ArgumentParser::parseComputedArgument()
{
    switch (m_tokens.kind()) {
    case Tok::Variable: {
        auto variable = m_expressions.parseVariable();
        // `$node.tx` looks like joining, but only parentheses and + join.
        if (variable->component >= 0)
            throw SyntaxError("Syntax error", variable->at);
        return variable;
    }
    case Tok::LeftParen:
    case Tok::Backquote:
    case Tok::LeftBrace:
    case Tok::LeftAngles: return m_expressions.parsePrimary();
    case Tok::Minus: return parseNegatedArgument();
    default: m_tokens.fail();
    }
}

ExprPtr ArgumentParser::parseNegatedArgument()
{
    const std::size_t at = m_tokens.at();
    m_tokens.advance();
    if (!m_tokens.isAdjacent())
        m_tokens.fail();
    if (m_tokens.is(Tok::Variable))
        return std::make_unique<UnaryExpr>(ExprKind::Negate, at, m_expressions.parseVariable());
    if (m_tokens.is(Tok::LeftParen))
        return std::make_unique<UnaryExpr>(ExprKind::Negate, at, m_expressions.parsePrimary());
    m_tokens.fail();
}

// A word is its own text, except for an index that must be computed: cv[$i], vtx[$a:$b].
ExprPtr ArgumentParser::parseWord()
{
    if (m_tokens.followingByte() == '[')
        return parseIndexedWord();
    const Tok kind = kindOfName(m_tokens.lexer().text(m_tokens.token()));
    if (isReservedWord(kind) && kind != Tok::True && kind != Tok::False)
        m_tokens.fail();
    return literalArgument(m_tokens.text());
}

ExprPtr ArgumentParser::parseIndexedWord()
{
    auto joined = std::make_unique<ChainExpr>(std::make_unique<LiteralExpr>(m_tokens.at(), m_tokens.text() + "["));
    const auto add = [&](ExprPtr part) { joined->links.push_back({BinaryOp::Add, std::move(part)}); };
    const auto addText = [&](std::string part) { add(std::make_unique<LiteralExpr>(m_tokens.at(), std::move(part))); };
    m_tokens.advance();
    for (;;) {
        m_tokens.expect(Tok::LeftBracket);
        add(m_expressions.parseExpression());
        if (m_tokens.accept(Tok::Colon)) {
            addText(":");
            add(m_expressions.parseExpression());
        }
        if (!m_tokens.is(Tok::RightBracket))
            m_tokens.fail();
        m_tokens.advanceToArgument();
        if (!m_tokens.is(Tok::Word) || !m_tokens.isAdjacent()) {
            addText("]");
            return joined;
        }
        const bool goesOn = m_tokens.followingByte() == '[';
        addText("]" + m_tokens.text() + (goesOn ? "[" : ""));
        if (!goesOn) {
            m_tokens.advanceToArgument();
            return joined;
        }
        m_tokens.advance();
    }
}

}  // namespace mel
