// The tree of a batch: what T-SQL says, before anything is known about tables.
#pragma once

#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "suite/tsql/types.h"

namespace salerpt::tsql {

struct Expression;
struct Query;
using ExpressionPtr = std::unique_ptr<Expression>;
using QueryPtr = std::unique_ptr<Query>;

// A name of up to four parts, as written: {"tempdb", "", "#DATA"} for tempdb..#DATA.
using NameParts = std::vector<std::string>;

enum class ExpressionKind : std::uint8_t {
  kNull,
  kInteger,   // text: the digits
  kDecimal,   // text: digits with a point
  kFloat,     // text: digits with an exponent
  kText,      // text: the characters; national
  kVariable,  // text: @name in lower case
  kColumn,    // name
  kStar,      // name: the parts before the star, maybe none; only in a select list and in count(*)
  kUnary,     // text: - + ~
  kBinary,    // text: + - * / % & | ^
  kCompare,   // text: = <> < <= > >=
  kAnd,
  kOr,
  kNot,
  kIsNull,     // negated
  kIn,         // args[0] in the other args or in query; negated
  kBetween,    // args[0] between args[1] and args[2]; negated
  kLike,       // args[0] like args[1], escape args[2] when there; negated
  kExists,     // query
  kSubquery,   // query
  kCase,       // has_operand: args[0]; then pairs of when and then; has_else: the last
  kFunction,   // text: the name in lower case; distinct
  kConvert,    // args[0] to type, style args[1] when there (CAST and CONVERT)
  kRowNumber,  // partition, order
};

struct OrderItem {
  ExpressionPtr expression;
  bool descending = false;
};

struct Expression {
  ExpressionKind kind = ExpressionKind::kNull;
  bool negated = false;
  bool distinct = false;
  bool national = false;
  bool has_operand = false;
  bool has_else = false;
  int depth = 1;  // of the deepest path below, bounded by the parser
  int line = 0;
  std::string text;
  NameParts name;
  ColumnType type;
  std::vector<ExpressionPtr> args;
  QueryPtr query;
  std::vector<ExpressionPtr> partition;
  std::vector<OrderItem> order;
};

enum class JoinKind : std::uint8_t { kInner, kLeft, kRight, kFull, kCross };

// A table, a derived table or a join of two of them.
struct TableSource {
  NameParts name;  // a table
  QueryPtr query;  // or a derived table
  std::string alias;
  std::vector<std::string> column_aliases;  // of a derived table
  JoinKind join = JoinKind::kInner;         // or a join of left and right
  std::unique_ptr<TableSource> left;
  std::unique_ptr<TableSource> right;
  ExpressionPtr on;
};
using TableSourcePtr = std::unique_ptr<TableSource>;

struct SelectItem {
  ExpressionPtr expression;
  std::string alias;
  std::string variable;  // @v = expression
};

enum class Grouping : std::uint8_t { kNone, kPlain, kRollup };

// One SELECT … without its ORDER BY.
struct QueryBlock {
  int line = 0;
  bool distinct = false;
  ExpressionPtr top;
  std::vector<SelectItem> items;
  NameParts into;
  std::vector<TableSourcePtr> from;  // comma form: one entry each
  ExpressionPtr where;
  Grouping grouping = Grouping::kNone;
  std::vector<ExpressionPtr> group_by;
  ExpressionPtr having;
};

enum class SetOperator : std::uint8_t { kUnion, kUnionAll, kExcept, kIntersect };

// Blocks joined by set operators from the left (operators[i] stands before blocks[i+1]), then the order of
// all.
struct Query {
  std::vector<QueryBlock> blocks;
  std::vector<SetOperator> operators;
  std::vector<OrderItem> order_by;
};

struct Statement;
using StatementPtr = std::unique_ptr<Statement>;

struct ColumnDefinition {
  std::string name;
  ColumnType type;
  bool identity = false;
  std::int64_t identity_seed = 1;
  bool primary_key = false;
  bool unique = false;
  ExpressionPtr default_value;
};

struct SelectStatement {
  QueryPtr query;
};
struct InsertStatement {
  NameParts table;
  std::vector<std::string> columns;                // empty: all but the identity
  QueryPtr query;                                  // either a query
  std::vector<std::vector<ExpressionPtr>> values;  // or rows; an absent expression is DEFAULT
  bool default_values = false;
};
struct Assignment {
  NameParts column;
  std::string variable;  // @v = expression in an UPDATE
  ExpressionPtr value;   // absent: DEFAULT
};
struct UpdateStatement {
  NameParts target;  // a table or an alias of the from list
  std::vector<Assignment> assignments;
  std::vector<TableSourcePtr> from;
  ExpressionPtr where;
};
struct DeleteStatement {
  NameParts target;
  std::vector<TableSourcePtr> from;
  ExpressionPtr where;
};
struct CreateTableStatement {
  NameParts table;
  std::vector<ColumnDefinition> columns;
  std::vector<std::vector<std::string>> keys;  // PRIMARY KEY and UNIQUE of several columns
};
struct CreateIndexStatement {
  std::string name;
  NameParts table;
  std::vector<std::string> columns;
  bool unique = false;
};
struct DropTableStatement {
  std::vector<NameParts> tables;
};
struct AlterTableStatement {
  NameParts table;
  std::vector<ColumnDefinition> columns;
};
struct TruncateStatement {
  NameParts table;
};
struct DeclareStatement {
  struct Variable {
    std::string name;
    ColumnType type;
    ExpressionPtr value;
  };
  std::vector<Variable> variables;
  std::unique_ptr<CreateTableStatement> table;  // a table variable
};
struct SetStatement {
  std::string variable;
  ExpressionPtr value;
};
// SET NOCOUNT ON and its like: they change nothing that a reader of rows sees.
struct SetOptionStatement {};
struct IfStatement {
  ExpressionPtr condition;
  StatementPtr then_branch;
  StatementPtr else_branch;
};
struct WhileStatement {
  ExpressionPtr condition;
  StatementPtr body;
};
struct BlockStatement {
  std::vector<StatementPtr> statements;
};
struct BreakStatement {};
struct ContinueStatement {};
struct ReturnStatement {};

struct Statement {
  int line = 0;
  int id = 0;  // unique in its batch: the interpreter keeps translations by it
  std::variant<SelectStatement, InsertStatement, UpdateStatement, DeleteStatement, CreateTableStatement,
               CreateIndexStatement, DropTableStatement, AlterTableStatement, TruncateStatement,
               DeclareStatement, SetStatement, SetOptionStatement, IfStatement, WhileStatement,
               BlockStatement, BreakStatement, ContinueStatement, ReturnStatement>
      body;
};

struct DeclaredVariable {
  std::string name;
  ColumnType type;
};

struct Batch {
  std::vector<StatementPtr> statements;
  // All of the batch: a variable is there from the start, wherever its DECLARE stands.
  std::vector<DeclaredVariable> variables;
  int statement_count = 0;  // ids run from 0 below this
};

}  // namespace salerpt::tsql
