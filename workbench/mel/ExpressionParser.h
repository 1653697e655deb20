#pragma once

#include "mel/Ast.h"
#include "mel/TokenStream.h"

namespace mel {

/// Reads expressions and calls. On return the stream stands on the first token that does not belong to them.
/// Throws SyntaxError.
class ExpressionParser {
public:
    explicit ExpressionParser(TokenStream& tokens) : m_tokens(tokens) {}

    ExprPtr parseExpression();
    /// A statement that starts with a name: a call in either syntax, or an expression that starts with a call.
    ExprPtr parseCallStatement();
    std::unique_ptr<VariableExpr> parseVariable();
    /// An expression without operators: a literal, a variable, a call, or anything in brackets.
    ExprPtr parsePrimary();

private:
    ExprPtr parseConditional();
    ExprPtr parseLogical(Tok op);
    ExprPtr parseChain(int lowestLevel);
    ExprPtr parseUnary();
    ExprPtr parseNumber();
    ExprPtr parseBoolean();
    ExprPtr parseString();
    ExprPtr parseParentheses();
    ExprPtr parseCast(std::size_t at, Type type);
    ExprPtr parseName();
    ExprPtr parseCall(const Token& name);
    ExprPtr parseBackquotes();
    ExprPtr parseArray();
    ExprPtr parseAngles();
    ExprPtr parseMatrix(std::size_t at, std::vector<ExprPtr> firstRow);
    ExprPtr parseCatch();
    std::vector<ExprPtr> parseList(Tok end);
    std::unique_ptr<VariableExpr> asVariable(ExprPtr expression) const;

    void rejectDepth() const;

    TokenStream& m_tokens;
    int m_backquotes = 0;  ///< those open right now
};

/// The type a reserved word names; None for other tokens.
BaseType typeOfWord(Tok kind);

}  // namespace mel
