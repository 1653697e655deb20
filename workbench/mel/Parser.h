#pragma once

#include "mel/Ast.h"
#include "mel/ExpressionParser.h"

#include <memory>

namespace mel {

/// Reads a whole text into a tree. Throws SyntaxError. Variables are not looked at here; that is the Resolver's part.
class Parser {
public:
    explicit Parser(std::shared_ptr<const Source> source);
    std::shared_ptr<Unit> parse();

private:
    StmtPtr parseItem();
    StmtPtr parseStatement();
    StmtPtr parseProcedure();
    Parameter parseParameter();
    StmtPtr parseDeclaration();
    Declarator parseDeclarator(BaseType base);
    int parseSize();
    StmtPtr parseBlock();
    StmtList parseStatementsUntilBrace();
    StmtPtr parseIf();
    StmtPtr parseWhile();
    StmtPtr parseDoWhile();
    StmtPtr parseFor();
    StmtPtr parseForIn(std::size_t at, Type type);
    std::vector<ExprPtr> parseExpressions(Tok end);
    StmtPtr parseSwitch();
    StmtPtr parseReturn();
    StmtPtr parsePlain(StmtKind kind);
    StmtPtr parseExpressionStatement();
    ExprPtr parseTest();
    void endStatement();
    bool startsDeclaration();

    std::shared_ptr<const Source> m_source;
    TokenStream m_tokens;
    ExpressionParser m_expressions;
};

}  // namespace mel
