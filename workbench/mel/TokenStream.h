#pragma once

#include "mel/Lexer.h"
#include "mel/Source.h"

#include <algorithm>
#include <stdexcept>
#include <string>

namespace mel {

/// A text that cannot be compiled. Never leaves the interpreter.
class SyntaxError : public std::runtime_error {
public:
    SyntaxError(const std::string& message, std::size_t at) : std::runtime_error(message), m_at(at) {}
    std::size_t at() const { return m_at; }

private:
    std::size_t m_at;
};

/// The lexer with one token read ahead, as the parsers see it.
class TokenStream {
public:
    explicit TokenStream(std::string_view text) : m_lexer(text) { advance(); }

    const Lexer& lexer() const { return m_lexer; }
    const Token& token() const { return m_token; }
    Tok kind() const { return m_token.kind; }
    bool is(Tok kind) const { return m_token.kind == kind; }
    std::size_t at() const { return m_token.begin; }
    std::string text() const { return std::string(m_lexer.text(m_token)); }
    /// Name of a Variable token, without "$".
    std::string variableName() const { return std::string(m_lexer.text(m_token).substr(1)); }
    /// Whether nothing separates the current token from the one before.
    bool isAdjacent() const { return m_token.begin == m_previousEnd; }

    /// The byte right behind the current token; 0 at the end.
    char followingByte() const { return m_token.end < m_lexer.whole().size() ? m_lexer.whole()[m_token.end] : '\0'; }

    /// False when the next token certainly does not start with that byte; comments are left undecided.
    bool mayBeFollowedBy(char byte) const
    {
        const std::string_view rest = m_lexer.whole().substr(m_token.end);
        const std::size_t next = rest.find_first_not_of(" \t\r\n\f");
        return next != std::string_view::npos && (rest[next] == byte || rest[next] == '/');
    }

    void advance()
    {
        m_previousEnd = m_token.end;
        m_token = m_lexer.next();
    }
    /// Takes what follows the token before as a command's argument.
    void rereadAsArgument()
    {
        m_lexer.seek(m_previousEnd);
        m_token = m_lexer.nextArgument();
    }
    void advanceToArgument()
    {
        m_previousEnd = m_token.end;
        m_token = m_lexer.nextArgument();
    }
    /// Takes the current token again by the rules of expressions.
    void rereadAsExpression()
    {
        m_lexer.seek(m_token.begin);
        m_token = m_lexer.next();
    }
    void seek(std::size_t offset)
    {
        m_previousEnd = offset;
        m_lexer.seek(offset);
        m_token = m_lexer.next();
    }

    bool accept(Tok kind)
    {
        if (m_token.kind != kind)
            return false;
        advance();
        return true;
    }
    void expect(Tok kind)
    {
        if (!accept(kind))
            fail();
    }
    /// The current token cannot stand where it does.
    [[noreturn]] void fail() const { fail("Syntax error" + tokenPlace()); }
    [[noreturn]] void fail(const std::string& message) const { throw SyntaxError(message, at()); }

private:
    std::string tokenPlace() const
    {
        constexpr std::size_t kLongest = 40;
        if (is(Tok::End))
            return " at the end";
        const std::string_view token = m_lexer.text(m_token);
        return " near '" + std::string(beginning(token.substr(0, token.find('\n')), kLongest)) + "'";
    }

    Lexer m_lexer;
    Token m_token;
    std::size_t m_previousEnd = 0;
};

}  // namespace mel
