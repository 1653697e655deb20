#pragma once

#include "mel/Variables.h"

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace mel {

class Source;

// The syntax tree. `at` is always the byte offset in the source of the part's first token. Chains of equal operators
// and of else-if are lists rather than towers, so that the depth of a tree follows the text's own nesting.

enum class ExprKind : unsigned char {
    Literal,
    Variable,
    Not,
    Negate,
    Step,
    Chain,
    Logical,
    Conditional,
    Assign,
    Cast,
    Call,
    Array,
    Vector,
    Matrix,
    Catch,
};

struct Expr {
    Expr(ExprKind kind, std::size_t at) : kind(kind), at(at) {}
    virtual ~Expr() = default;

    const ExprKind kind;
    const std::size_t at;
};
using ExprPtr = std::unique_ptr<Expr>;

struct LiteralExpr : Expr {
    LiteralExpr(std::size_t at, kernel::Value value) : Expr(ExprKind::Literal, at), value(std::move(value)) {}
    kernel::Value value;
};

struct VariableExpr : Expr {
    VariableExpr(std::size_t at, std::string name) : Expr(ExprKind::Variable, at), name(std::move(name)) {}
    bool isWhole() const { return indices.empty() && component < 0; }

    std::string name;                    ///< without "$"
    std::vector<ExprPtr> indices;        ///< two for a matrix
    int component = -1;                  ///< 0 to 2: x, y, z
    int slot = -1;                       ///< place in the frame; -1: global
    bool declares = false;               ///< this assignment is the variable's declaration
    mutable Variable* global = nullptr;  ///< found on first use
};

/// Not and Negate.
struct UnaryExpr : Expr {
    UnaryExpr(ExprKind kind, std::size_t at, ExprPtr operand) : Expr(kind, at), operand(std::move(operand)) {}
    ExprPtr operand;
};

/// ++ and --, before or after.
struct StepExpr : Expr {
    StepExpr(std::size_t at, std::unique_ptr<VariableExpr> target, int step, bool prefix)
        : Expr(ExprKind::Step, at), target(std::move(target)), step(step), prefix(prefix)
    {}
    std::unique_ptr<VariableExpr> target;
    int step;
    bool prefix;
};

enum class BinaryOp : unsigned char {
    Add,
    Subtract,
    Multiply,
    Divide,
    Modulo,
    Cross,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    Equal,
    NotEqual,
};

/// Operands joined by operators of one level, from left to right.
struct ChainExpr : Expr {
    struct Link {
        BinaryOp op;
        ExprPtr operand;
    };
    ChainExpr(ExprPtr first) : Expr(ExprKind::Chain, first->at), first(std::move(first)) {}
    ExprPtr first;
    std::vector<Link> links;
};

/// Operands of && or ||, evaluated until one decides.
struct LogicalExpr : Expr {
    LogicalExpr(bool isAnd, ExprPtr first) : Expr(ExprKind::Logical, first->at), isAnd(isAnd)
    {
        operands.push_back(std::move(first));
    }
    bool isAnd;
    std::vector<ExprPtr> operands;
};

struct ConditionalExpr : Expr {
    ConditionalExpr(ExprPtr test, ExprPtr yes, ExprPtr no)
        : Expr(ExprKind::Conditional, test->at), test(std::move(test)), yes(std::move(yes)), no(std::move(no))
    {}
    ExprPtr test;
    ExprPtr yes;
    ExprPtr no;
};

struct AssignExpr : Expr {
    AssignExpr(std::unique_ptr<VariableExpr> target, ExprPtr value)
        : Expr(ExprKind::Assign, target->at), target(std::move(target)), value(std::move(value))
    {}
    std::unique_ptr<VariableExpr> target;
    ExprPtr value;
    bool compound = false;  ///< += and the like, with `op`
    BinaryOp op = BinaryOp::Add;
};

struct CastExpr : Expr {
    CastExpr(std::size_t at, Type type, ExprPtr operand)
        : Expr(ExprKind::Cast, at), type(type), operand(std::move(operand))
    {}
    Type type;
    ExprPtr operand;
};

/// A command, procedure or function with its arguments, in either syntax. Flags and words are string literals.
struct CallExpr : Expr {
    CallExpr(std::size_t at, std::string name) : Expr(ExprKind::Call, at), name(std::move(name)) {}
    std::string name;
    std::vector<ExprPtr> args;
};

struct ArrayExpr : Expr {
    explicit ArrayExpr(std::size_t at) : Expr(ExprKind::Array, at) {}
    std::vector<ExprPtr> elements;
};

struct VectorExpr : Expr {
    explicit VectorExpr(std::size_t at) : Expr(ExprKind::Vector, at) {}
    ExprPtr components[3];
};

struct MatrixExpr : Expr {
    explicit MatrixExpr(std::size_t at) : Expr(ExprKind::Matrix, at) {}
    std::vector<ExprPtr> elements;  ///< row by row
    unsigned columns = 0;
};

struct CatchExpr : Expr {
    CatchExpr(std::size_t at, bool quiet, ExprPtr operand)
        : Expr(ExprKind::Catch, at), quiet(quiet), operand(std::move(operand))
    {}
    bool quiet;
    ExprPtr operand;
};

enum class StmtKind : unsigned char {
    Empty,
    Expression,
    Declaration,
    Block,
    If,
    While,
    DoWhile,
    For,
    ForIn,
    Switch,
    Break,
    Continue,
    Return,
    Procedure,
};

struct Stmt {
    Stmt(StmtKind kind, std::size_t at) : kind(kind), at(at) {}
    virtual ~Stmt() = default;

    const StmtKind kind;
    const std::size_t at;
};
using StmtPtr = std::unique_ptr<Stmt>;
using StmtList = std::vector<StmtPtr>;

struct ExpressionStmt : Stmt {
    explicit ExpressionStmt(ExprPtr expression)
        : Stmt(StmtKind::Expression, expression->at), expression(std::move(expression))
    {}
    ExprPtr expression;
};

struct Declarator {
    std::unique_ptr<VariableExpr> variable;
    Type type;
    ExprPtr initialiser;   ///< null when there is none
    int size = 0;          ///< initial length of an array, rows of a matrix
    int columns = 0;       ///< matrix only
    bool isFirst = false;  ///< the first declaration in its scope: starts from a fresh value
};

struct DeclarationStmt : Stmt {
    explicit DeclarationStmt(std::size_t at) : Stmt(StmtKind::Declaration, at) {}
    bool isGlobal = false;
    std::vector<Declarator> declarators;
};

struct BlockStmt : Stmt {
    explicit BlockStmt(std::size_t at) : Stmt(StmtKind::Block, at) {}
    StmtList statements;
};

struct IfStmt : Stmt {
    struct Branch {
        ExprPtr test;  ///< null: else
        StmtPtr body;
    };
    explicit IfStmt(std::size_t at) : Stmt(StmtKind::If, at) {}
    std::vector<Branch> branches;
};

/// While and DoWhile.
struct WhileStmt : Stmt {
    WhileStmt(StmtKind kind, std::size_t at) : Stmt(kind, at) {}
    ExprPtr test;
    StmtPtr body;
};

struct ForStmt : Stmt {
    explicit ForStmt(std::size_t at) : Stmt(StmtKind::For, at) {}
    StmtList start;  ///< expressions, or one declaration
    ExprPtr test;    ///< null: true
    std::vector<ExprPtr> steps;
    StmtPtr body;
};

struct ForInStmt : Stmt {
    explicit ForInStmt(std::size_t at) : Stmt(StmtKind::ForIn, at) {}
    Type type;  ///< None when the loop does not name one
    std::unique_ptr<VariableExpr> variable;
    ExprPtr source;
    StmtPtr body;
};

struct SwitchStmt : Stmt {
    struct Case {
        ExprPtr value;  ///< null: default
        std::size_t first;
    };
    explicit SwitchStmt(std::size_t at) : Stmt(StmtKind::Switch, at) {}
    ExprPtr subject;
    std::vector<Case> cases;  ///< `first` is the index of the statement to start from
    StmtList statements;
};

/// Empty, Break and Continue.
struct PlainStmt : Stmt {
    PlainStmt(StmtKind kind, std::size_t at) : Stmt(kind, at) {}
};

struct ReturnStmt : Stmt {
    explicit ReturnStmt(std::size_t at) : Stmt(StmtKind::Return, at) {}
    ExprPtr value;  ///< null when there is none
};

struct Parameter {
    std::string name;
    Type type;
    std::size_t at = 0;
};

struct ProcedureStmt : Stmt {
    explicit ProcedureStmt(std::size_t at) : Stmt(StmtKind::Procedure, at) {}
    bool isGlobal = false;
    std::string name;
    Type result;
    std::vector<Parameter> parameters;  ///< they take the first slots of the frame
    StmtList body;
    int frameSize = 0;
};

/// One compiled text.
struct Unit {
    std::shared_ptr<const Source> source;
    StmtList statements;
    int frameSize = 0;  ///< slots of the blocks' locals at the top level
    /// The text's own procedures, as far as it has run; they belong to the tree.
    mutable std::map<std::string, const ProcedureStmt*> localProcedures;
};

}  // namespace mel
