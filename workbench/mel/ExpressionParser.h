#pragma once

#include "mel/Ast.h"
#include "mel/TokenStream.h"

namespace mel {

/// Reads expressions and command calls. On return the stream stands on the first token that does not belong to them.
/// Throws SyntaxError.
class ExpressionParser {
public:
    explicit ExpressionParser(TokenStream& tokens) : m_tokens(tokens) {}

    ExprPtr parseExpression();
    /// A statement that starts with a name: a call in either syntax, or an expression that starts with a call.
    ExprPtr parseCallStatement();
    std::unique_ptr<VariableExpr> parseVariable();
    /// What stands between a command's name and its end as one argument; the stream is on its first token, read as
    /// an argument, and is left on the first token of the next.
    ExprPtr parseArgument();

private:
    ExprPtr parseConditional();
    ExprPtr parseLogical(Tok op);
    ExprPtr parseChain(int lowestLevel);
    ExprPtr parseUnary();
    ExprPtr parsePrimary();
    ExprPtr parseNumber();
    ExprPtr parseBoolean();
    ExprPtr parseString();
    ExprPtr parseParentheses();
    ExprPtr parseCast(std::size_t at, Type type);
    ExprPtr parseName();
    ExprPtr parseCall(const Token& name);
    ExprPtr parseCommand(bool inBackquotes);
    ExprPtr parseBackquotes();
    ExprPtr parseArray();
    ExprPtr parseAngles();
    ExprPtr parseMatrix(std::size_t at, std::vector<ExprPtr> firstRow);
    ExprPtr parseCatch();
    ExprPtr literalArgument(kernel::Value value);
    ExprPtr parseComputedArgument();
    ExprPtr parseWord();
    ExprPtr parseIndexedWord();
    ExprPtr parseNegatedArgument();
    std::vector<ExprPtr> parseList(Tok end);
    std::unique_ptr<VariableExpr> asVariable(ExprPtr expression) const;

    bool isCallSyntax();
    void rejectDepth() const;

    TokenStream& m_tokens;
    int m_backquotes = 0;  ///< those open right now
};

/// The type a reserved word names; None for other tokens.
BaseType typeOfWord(Tok kind);

}  // namespace mel
