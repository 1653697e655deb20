#pragma once

#include "kernel/Value.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace mel {

enum class Tok : unsigned char {
    End,
    Bad,  ///< a stray byte, a string without its closing quote, a "$" without a name
    Integer,
    Float,
    String,
    Identifier,
    Variable,
    Flag,  ///< arguments only: "-" and a name
    Word,  ///< arguments only: an unquoted name, path or number with a unit; ".." and "|" too

    LeftParen,
    RightParen,
    LeftBracket,
    RightBracket,
    LeftBrace,
    RightBrace,
    LeftAngles,   ///< <<
    RightAngles,  ///< >>
    Comma,
    Semicolon,
    Colon,
    Question,
    Backquote,
    Dot,

    Plus,
    Minus,
    Times,
    Divide,
    Modulo,
    Cross,  ///< ^
    Assign,
    PlusAssign,
    MinusAssign,
    TimesAssign,
    DivideAssign,
    ModuloAssign,
    CrossAssign,
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    And,
    Or,
    Not,
    Increment,
    Decrement,

    // reserved words, in this order from the first to the last
    Break,
    Case,
    Catch,
    CatchQuiet,
    Continue,
    Default,
    Do,
    Else,
    False,
    FloatType,
    For,
    Global,
    If,
    In,
    IntType,
    MatrixType,
    Proc,
    Return,
    StringType,
    Switch,
    True,
    VectorType,
    While,
};

bool isReservedWord(Tok kind);
/// The reserved word a name is; Identifier for other names.
Tok kindOfName(std::string_view name);

struct Token {
    Tok kind = Tok::End;
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// Cuts a text into tokens. What a byte means depends on where it stands: a command's arguments are scanned by
/// other rules than an expression ("-x" is a flag there, "a|b.c[0:3]" one word), so the parser chooses per token.
/// It copies nothing and never throws; what it cannot read becomes a Bad token.
class Lexer {
public:
    explicit Lexer(std::string_view text) : m_text(text) {}

    Token next();          ///< the next token of an expression or statement
    Token nextArgument();  ///< the next token of a command's arguments

    std::size_t offset() const { return m_at; }
    void seek(std::size_t offset) { m_at = offset; }

    std::string_view text(const Token& token) const { return m_text.substr(token.begin, token.end - token.begin); }
    std::string_view whole() const { return m_text; }

    /// Content of a String token, without quotes and escapes.
    std::string stringContent(const Token& token) const;
    /// Value of an Integer or Float token, "-" in front allowed. A decimal number too large for an int is a double.
    kernel::Value numberValue(const Token& token) const;

private:
    std::string_view m_text;
    std::size_t m_at = 0;

    char peek(std::size_t ahead = 0) const { return m_at + ahead < m_text.size() ? m_text[m_at + ahead] : '\0'; }
    void skipBlanks();
    bool skipComment();
    Token finish(Tok kind, std::size_t begin);
    Token scanString(std::size_t begin);
    Token scanVariable(std::size_t begin);
    Token scanIdentifier(std::size_t begin);
    Token scanNumber(std::size_t begin);
    Token scanNumberArgument(std::size_t begin);
    Token scanWord(std::size_t begin);
    Token scanOperator(std::size_t begin);
    bool startsNumber(std::size_t ahead) const;
};

}  // namespace mel
