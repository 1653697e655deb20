#pragma once

#include "mel/Ast.h"
#include "mel/ExpressionParser.h"
#include "mel/TokenStream.h"

namespace mel {

/// Whether the name the stream stands on begins a call in function syntax, `f($x)`, not a command. The stream stays.
bool isCallSyntax(TokenStream& tokens);

/// Reads calls in command syntax, whose arguments follow rules of their own. Throws SyntaxError.
class ArgumentParser {
public:
    ArgumentParser(TokenStream& tokens, ExpressionParser& expressions) : m_tokens(tokens), m_expressions(expressions) {}

    /// From the command's name to the mark that ends it, which is left standing.
    ExprPtr parseCommand(bool inBackquotes);
    /// One argument; the stream stands on its first token, read as an argument, and is left on the first of the next.
    ExprPtr parseArgument();

private:
    ExprPtr literalArgument(kernel::Value value);
    ExprPtr parseComputedArgument();
    ExprPtr parseNegatedArgument();
    ExprPtr parseWord();
    ExprPtr parseIndexedWord();

    TokenStream& m_tokens;
    ExpressionParser& m_expressions;
};

}  // namespace mel
