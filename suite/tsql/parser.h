// Builds the tree of a batch from its tokens.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "suite/tsql/lexer.h"
#include "suite/tsql/syntax_tree.h"

namespace salerpt::tsql {

// Raises 102 and 156 for what is no T-SQL, 137 and 134 for variables, 195 for unknown functions, 191 for
// statements that are nested too deeply, and 50000 for statements and clauses that the engine refuses by
// name. Nothing has run then.
Batch ParseBatch(std::string_view text);

// The parser proper. Its parts stand in parser.cpp (statements), parser_definition.cpp (create, alter,
// declare), parser_query.cpp (selects) and parser_expression.cpp.
class Parser {
 public:
  explicit Parser(std::vector<Token> tokens) : tokens_(std::move(tokens)) {}
  Batch ParseAll();

 private:
  // Counts the nesting of what is being parsed and refuses it where it would exhaust the stack.
  class DepthGuard {
   public:
    explicit DepthGuard(Parser& parser);
    ~DepthGuard() { --parser_.depth_; }
    DepthGuard(const DepthGuard&) = delete;
    DepthGuard& operator=(const DepthGuard&) = delete;

   private:
    Parser& parser_;
  };

  // Tokens.
  [[nodiscard]] const Token& Peek(std::size_t ahead = 0) const;
  const Token& Take();
  [[nodiscard]] bool AtSymbol(std::string_view symbol, std::size_t ahead = 0) const;
  [[nodiscard]] bool AtWord(std::string_view word, std::size_t ahead = 0) const;
  bool TakeSymbol(std::string_view symbol);
  bool TakeWord(std::string_view word);
  void ExpectSymbol(std::string_view symbol);
  void ExpectWord(std::string_view word);
  [[noreturn]] void FailHere() const;
  [[noreturn]] void RefuseHere(std::string_view what) const;
  [[nodiscard]] bool AtName(std::size_t ahead = 0) const;
  std::string TakeName();
  NameParts TakeNameParts();
  int TakeSmallNumber();

  // Statements.
  StatementPtr ParseStatement();
  StatementPtr ParseNestedStatement();
  void ParseBody(Statement& statement);
  void ParseSpecialBody(Statement& statement);
  InsertStatement ParseInsert();
  void ParseInsertValues(InsertStatement& insert);
  UpdateStatement ParseUpdate();
  Assignment ParseAssignment();
  DeleteStatement ParseDelete();
  void ParseSet(Statement& statement);
  IfStatement ParseIf();
  WhileStatement ParseWhile();
  BlockStatement ParseBlock();
  DropTableStatement ParseDrop();

  // Definitions.
  void ParseCreate(Statement& statement);
  CreateTableStatement ParseCreateTable();
  CreateIndexStatement ParseCreateIndex(bool unique);
  AlterTableStatement ParseAlter();
  TruncateStatement ParseTruncate();
  DeclareStatement ParseDeclare();
  void ParseTableElements(CreateTableStatement& table);
  bool ParseTableConstraint(CreateTableStatement& table);
  // `number` counts the columns from 1, for messages.
  ColumnDefinition ParseColumnDefinition(int number);
  void ParseColumnOption(ColumnDefinition& column, bool& more);
  void ParseIdentity(ColumnDefinition& column);
  // `column` 0: the type of a CAST.
  ColumnType ParseTypeName(int column = 0, std::string_view name = {});
  void ParseTextSize(ColumnType& type, std::string_view column);
  void ParsePrecision(ColumnType& type, int column);
  std::vector<std::string> ParseColumnNames();

  // Queries.
  QueryPtr ParseQuery();
  QueryBlock ParseQueryBlock();
  void ParseTop(QueryBlock& block);
  SelectItem ParseSelectItem();
  std::string ParseOptionalAlias();
  std::vector<TableSourcePtr> ParseFromList();
  TableSourcePtr ParseJoins();
  TableSourcePtr ParseTableSource();
  bool TakeJoin(JoinKind& kind);
  void SkipTableHints();
  void ParseGroupBy(QueryBlock& block);
  std::vector<OrderItem> ParseOrderList();

  // Expressions, from the loosest binding to the tightest.
  ExpressionPtr ParseExpression();
  ExpressionPtr ParseCondition();
  void RequireCondition(const Expression& expression) const;
  ExpressionPtr ParseOr();
  ExpressionPtr ParseAnd();
  ExpressionPtr ParseNot();
  ExpressionPtr ParsePredicate();
  ExpressionPtr ParsePredicateTail(ExpressionPtr left);
  ExpressionPtr ParseIn(ExpressionPtr left, bool negated);
  ExpressionPtr ParseSum();
  ExpressionPtr ParseProduct();
  ExpressionPtr ParseUnary();
  ExpressionPtr ParsePrimary();
  ExpressionPtr ParseParenthesis();
  ExpressionPtr ParseLiteral();
  ExpressionPtr ParseNameExpression();
  ExpressionPtr ParseFunction(const std::string& name, int line);
  ExpressionPtr ParseOver(ExpressionPtr function);
  ExpressionPtr ParseCase();
  ExpressionPtr ParseCast();
  ExpressionPtr ParseConvert();
  ExpressionPtr ParseVariable();
  [[nodiscard]] ExpressionPtr NewExpression(ExpressionKind kind) const;
  ExpressionPtr NewBinary(ExpressionKind kind, std::string text, ExpressionPtr left,
                          ExpressionPtr right) const;
  void Adopt(Expression& parent, ExpressionPtr child) const;

  void DeclareVariable(const std::string& name, int line);
  void CheckVariable(const Token& token) const;

  std::vector<Token> tokens_;
  std::size_t position_ = 0;
  int depth_ = 0;
  int statement_count_ = 0;
  int loop_depth_ = 0;
  std::vector<std::string> variables_;  // names declared so far, in capitals
  std::vector<DeclaredVariable> declared_;
};

// A word that can stand for a name only in brackets.
bool IsReservedWord(std::string_view word);

}  // namespace salerpt::tsql
