#include "suite/tsql/parser.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <limits>

#include "runtime/text.h"
#include "suite/tsql/error.h"

namespace salerpt::tsql {
namespace {

constexpr int kMaxDepth = 300;
constexpr std::size_t kMaxNameParts = 4;

// Sorted, in capitals.
constexpr auto kReservedWords = std::to_array<std::string_view>({
    "ADD",          "ALL",         "ALTER",       "AND",
    "ANY",          "AS",          "ASC",         "AUTHORIZATION",
    "BACKUP",       "BEGIN",       "BETWEEN",     "BREAK",
    "BROWSE",       "BULK",        "BY",          "CASCADE",
    "CASE",         "CHECK",       "CLOSE",       "CLUSTERED",
    "COALESCE",     "COLLATE",     "COLUMN",      "COMMIT",
    "COMPUTE",      "CONSTRAINT",  "CONTINUE",    "CONVERT",
    "CREATE",       "CROSS",       "CURRENT",     "CURSOR",
    "DATABASE",     "DBCC",        "DEALLOCATE",  "DECLARE",
    "DEFAULT",      "DELETE",      "DENY",        "DESC",
    "DISTINCT",     "DROP",        "ELSE",        "END",
    "ESCAPE",       "EXCEPT",      "EXEC",        "EXECUTE",
    "EXISTS",       "FETCH",       "FOR",         "FOREIGN",
    "FROM",         "FULL",        "FUNCTION",    "GOTO",
    "GRANT",        "GROUP",       "HAVING",      "HOLDLOCK",
    "IDENTITY",     "IF",          "IN",          "INDEX",
    "INNER",        "INSERT",      "INTERSECT",   "INTO",
    "IS",           "JOIN",        "KEY",         "KILL",
    "LEFT",         "LIKE",        "MERGE",       "NOCHECK",
    "NONCLUSTERED", "NOT",         "NULL",        "NULLIF",
    "OF",           "OFF",         "ON",          "OPEN",
    "OPTION",       "OR",          "ORDER",       "OUTER",
    "OVER",         "PERCENT",     "PIVOT",       "PRIMARY",
    "PRINT",        "PROC",        "PROCEDURE",   "RAISERROR",
    "READ",         "RECONFIGURE", "REFERENCES",  "RESTORE",
    "RETURN",       "REVOKE",      "RIGHT",       "ROLLBACK",
    "ROWCOUNT",     "RULE",        "SAVE",        "SELECT",
    "SET",          "SHUTDOWN",    "SOME",        "STATISTICS",
    "TABLE",        "TABLESAMPLE", "THEN",        "TO",
    "TOP",          "TRAN",        "TRANSACTION", "TRIGGER",
    "TRUNCATE",     "UNION",       "UNIQUE",      "UNPIVOT",
    "UPDATE",       "USE",         "USER",        "VALUES",
    "VIEW",         "WAITFOR",     "WHEN",        "WHERE",
    "WHILE",        "WITH",        "WRITETEXT",
});

}  // namespace

bool IsReservedWord(std::string_view word) {
  return std::binary_search(kReservedWords.begin(), kReservedWords.end(), std::string_view(UpperCase(word)));
}

Batch ParseBatch(std::string_view text) {
  return Parser(Tokenize(text)).ParseAll();
}

Parser::DepthGuard::DepthGuard(Parser& parser) : parser_(parser) {
  if (parser_.depth_ >= kMaxDepth) Raise(191, std::string(kTooDeepText), parser_.Peek().line);
  ++parser_.depth_;
}

const Token& Parser::Peek(std::size_t ahead) const {
  return tokens_[std::min(position_ + ahead, tokens_.size() - 1)];
}

const Token& Parser::Take() {
  const Token& token = Peek();
  if (position_ + 1 < tokens_.size()) ++position_;
  return token;
}

bool Parser::AtSymbol(std::string_view symbol, std::size_t ahead) const {
  return Peek(ahead).kind == TokenKind::kSymbol && Peek(ahead).text == symbol;
}

bool Parser::AtWord(std::string_view word, std::size_t ahead) const {
  return Peek(ahead).kind == TokenKind::kWord && EqualNames(Peek(ahead).text, word);
}

bool Parser::TakeSymbol(std::string_view symbol) {
  if (!AtSymbol(symbol)) return false;
  Take();
  return true;
}

bool Parser::TakeWord(std::string_view word) {
  if (!AtWord(word)) return false;
  Take();
  return true;
}

void Parser::ExpectSymbol(std::string_view symbol) {
  if (!TakeSymbol(symbol)) FailHere();
}

void Parser::ExpectWord(std::string_view word) {
  if (!TakeWord(word)) FailHere();
}

// At the end of the batch the server names the last token that it read.
void Parser::FailHere() const {
  const bool at_end = Peek().kind == TokenKind::kEnd;
  const Token& token = at_end && position_ > 0 ? tokens_[position_ - 1] : Peek();
  if (token.kind == TokenKind::kWord && IsReservedWord(token.text) && !at_end) {
    Raise(156, fmt::format("Incorrect syntax near the keyword '{}'.", token.text), token.line);
  }
  Raise(102, fmt::format("Incorrect syntax near '{}'.", token.text), token.line);
}

void Parser::RefuseHere(std::string_view what) const {
  RaiseNotSupported(what, Peek().line);
}

bool Parser::AtName(std::size_t ahead) const {
  const Token& token = Peek(ahead);
  return token.kind == TokenKind::kName || (token.kind == TokenKind::kWord && !IsReservedWord(token.text));
}

std::string Parser::TakeName() {
  if (!AtName()) FailHere();
  return Take().text;
}

NameParts Parser::TakeNameParts() {
  if (Peek().kind == TokenKind::kVariable) {
    const Token& token = Peek();
    if (std::find(variables_.begin(), variables_.end(), UpperCase(token.text)) == variables_.end()) {
      Raise(1087, fmt::format("Must declare the table variable \"{}\".", token.text), token.line);
    }
    return {Take().text};
  }
  NameParts parts = {TakeName()};
  while (TakeSymbol(".")) {
    parts.push_back(AtSymbol(".") ? std::string() : TakeName());
    if (parts.size() > kMaxNameParts) {
      Raise(117,
            fmt::format(
                "The object name '{}' contains more than the maximum number of prefixes. The maximum is 3.",
                fmt::join(parts, ".")),
            Peek().line);
    }
  }
  return parts;
}

int Parser::TakeSmallNumber() {
  if (Peek().kind != TokenKind::kInteger || Peek().text.size() > 6) FailHere();
  return std::stoi(Take().text);
}

Batch Parser::ParseAll() {
  Batch batch;
  while (TakeSymbol(";")) {
  }
  while (Peek().kind != TokenKind::kEnd) {
    batch.statements.push_back(ParseStatement());
    while (TakeSymbol(";")) {
    }
  }
  batch.statement_count = statement_count_;
  batch.variables = std::move(declared_);
  return batch;
}

StatementPtr Parser::ParseStatement() {
  const DepthGuard guard(*this);
  auto statement = std::make_unique<Statement>();
  statement->line = Peek().line;
  statement->id = statement_count_++;
  ParseBody(*statement);
  return statement;
}

StatementPtr Parser::ParseNestedStatement() {
  StatementPtr statement = ParseStatement();
  // A semicolon belongs to the statement before an ELSE.
  if (AtSymbol(";")) Take();
  return statement;
}

void Parser::ParseBody(Statement& statement) {
  if (AtWord("select") || AtSymbol("(")) {
    statement.body = SelectStatement{ParseQuery()};
  } else if (TakeWord("insert")) {
    statement.body = ParseInsert();
  } else if (TakeWord("update")) {
    statement.body = ParseUpdate();
  } else if (TakeWord("delete")) {
    statement.body = ParseDelete();
  } else if (TakeWord("create")) {
    ParseCreate(statement);
  } else if (TakeWord("drop")) {
    statement.body = ParseDrop();
  } else if (TakeWord("alter")) {
    statement.body = ParseAlter();
  } else if (TakeWord("truncate")) {
    statement.body = ParseTruncate();
  } else if (TakeWord("declare")) {
    statement.body = ParseDeclare();
  } else if (TakeWord("set")) {
    ParseSet(statement);
  } else {
    ParseSpecialBody(statement);
  }
}

void Parser::ParseSpecialBody(Statement& statement) {
  static constexpr auto kRefused = std::to_array<std::string_view>(
      {"MERGE",    "EXEC",    "EXECUTE", "PRINT",    "RAISERROR",  "WAITFOR", "GOTO",
       "BACKUP",   "RESTORE", "GRANT",   "REVOKE",   "DENY",       "BULK",    "DBCC",
       "KILL",     "OPEN",    "FETCH",   "CLOSE",    "DEALLOCATE", "USE",     "COMMIT",
       "ROLLBACK", "SAVE",    "WITH",    "SHUTDOWN", "CHECKPOINT", "THROW"});
  if (TakeWord("if")) {
    statement.body = ParseIf();
  } else if (TakeWord("while")) {
    statement.body = ParseWhile();
  } else if (AtWord("begin") && !AtWord("tran", 1) && !AtWord("transaction", 1) && !AtWord("try", 1)) {
    Take();
    statement.body = ParseBlock();
  } else if (AtWord("break") || AtWord("continue")) {
    if (loop_depth_ == 0) {
      Raise(AtWord("break") ? 135 : 136,
            fmt::format("Cannot use a {} statement outside the scope of a WHILE statement.",
                        UpperCase(Peek().text)),
            Peek().line);
    }
    if (TakeWord("break")) {
      statement.body = BreakStatement{};
    } else {
      Take();
      statement.body = ContinueStatement{};
    }
  } else if (TakeWord("return")) {
    statement.body = ReturnStatement{};
  } else if (AtWord("begin")) {
    RefuseHere("BEGIN " + UpperCase(Peek(1).text));
  } else {
    for (const std::string_view word : kRefused) {
      if (AtWord(word)) RefuseHere(word);
    }
    FailHere();
  }
}

InsertStatement Parser::ParseInsert() {
  InsertStatement insert;
  TakeWord("into");
  insert.table = TakeNameParts();
  SkipTableHints();
  if (AtSymbol("(") && (!AtWord("select", 1) || AtSymbol(")", 2))) insert.columns = ParseColumnNames();
  if (TakeWord("default")) {
    ExpectWord("values");
    insert.default_values = true;
  } else if (TakeWord("values")) {
    ParseInsertValues(insert);
  } else if (AtWord("exec") || AtWord("execute")) {
    RefuseHere("INSERT ... EXEC");
  } else if (AtWord("select") || AtSymbol("(")) {
    insert.query = ParseQuery();
  } else {
    FailHere();
  }
  return insert;
}

void Parser::ParseInsertValues(InsertStatement& insert) {
  do {
    ExpectSymbol("(");
    std::vector<ExpressionPtr>& row = insert.values.emplace_back();
    do {
      row.push_back(TakeWord("default") ? nullptr : ParseExpression());
    } while (TakeSymbol(","));
    ExpectSymbol(")");
  } while (TakeSymbol(","));
}

UpdateStatement Parser::ParseUpdate() {
  if (AtWord("top")) RefuseHere("UPDATE TOP");
  UpdateStatement update;
  update.target = TakeNameParts();
  SkipTableHints();
  ExpectWord("set");
  do {
    update.assignments.push_back(ParseAssignment());
  } while (TakeSymbol(","));
  if (TakeWord("from")) update.from = ParseFromList();
  if (TakeWord("where")) update.where = ParseCondition();
  return update;
}

Assignment Parser::ParseAssignment() {
  Assignment assignment;
  if (Peek().kind == TokenKind::kVariable) {
    CheckVariable(Peek());
    assignment.variable = Take().text;
    if (AtSymbol("=", 1) && AtName()) RefuseHere("SET @variable = column = expression");
  } else {
    assignment.column = TakeNameParts();
  }
  ExpectSymbol("=");
  if (!TakeWord("default")) assignment.value = ParseExpression();
  return assignment;
}

DeleteStatement Parser::ParseDelete() {
  if (AtWord("top")) RefuseHere("DELETE TOP");
  DeleteStatement remove;
  TakeWord("from");
  remove.target = TakeNameParts();
  SkipTableHints();
  if (TakeWord("from")) remove.from = ParseFromList();
  if (TakeWord("where")) remove.where = ParseCondition();
  return remove;
}

void Parser::ParseSet(Statement& statement) {
  static constexpr auto kOptions = std::to_array<std::string_view>(
      {"nocount", "ansi_nulls", "ansi_warnings", "ansi_padding", "quoted_identifier", "arithabort",
       "concat_null_yields_null", "xact_abort", "numeric_roundabort"});
  if (Peek().kind == TokenKind::kVariable) {
    CheckVariable(Peek());
    SetStatement set;
    set.variable = Take().text;
    ExpectSymbol("=");
    set.value = ParseExpression();
    statement.body = std::move(set);
    return;
  }
  for (const std::string_view option : kOptions) {
    if (!TakeWord(option)) continue;
    if (!TakeWord("on") && !TakeWord("off")) FailHere();
    statement.body = SetOptionStatement{};
    return;
  }
  if (Peek().kind == TokenKind::kWord && Peek(1).kind != TokenKind::kEnd) {
    RefuseHere("SET " + UpperCase(Peek().text));
  }
  if (Peek().kind == TokenKind::kWord) Take();
  FailHere();
}

IfStatement Parser::ParseIf() {
  IfStatement result;
  result.condition = ParseCondition();
  result.then_branch = ParseNestedStatement();
  if (TakeWord("else")) result.else_branch = ParseNestedStatement();
  return result;
}

WhileStatement Parser::ParseWhile() {
  WhileStatement loop;
  loop.condition = ParseCondition();
  ++loop_depth_;
  loop.body = ParseStatement();
  --loop_depth_;
  return loop;
}

BlockStatement Parser::ParseBlock() {
  BlockStatement block;
  do {
    while (TakeSymbol(";")) {
    }
    if (AtWord("end")) {
      if (block.statements.empty()) FailHere();
      break;
    }
    block.statements.push_back(ParseStatement());
  } while (true);
  ExpectWord("end");
  return block;
}

DropTableStatement Parser::ParseDrop() {
  if (!AtWord("table") && Peek().kind == TokenKind::kWord) RefuseHere("DROP " + UpperCase(Peek().text));
  ExpectWord("table");
  DropTableStatement drop;
  do {
    if (Peek().kind == TokenKind::kVariable) FailHere();
    drop.tables.push_back(TakeNameParts());
  } while (TakeSymbol(","));
  return drop;
}

void Parser::DeclareVariable(const std::string& name, int line) {
  if (std::find(variables_.begin(), variables_.end(), UpperCase(name)) != variables_.end()) {
    Raise(
        134,
        fmt::format(
            "The variable name '{}' has already been declared. Variable names must be unique within a query "
            "batch or stored procedure.",
            name),
        line);
  }
  variables_.push_back(UpperCase(name));
}

void Parser::CheckVariable(const Token& token) const {
  if (token.text.starts_with("@@")) return;
  if (std::find(variables_.begin(), variables_.end(), UpperCase(token.text)) != variables_.end()) return;
  Raise(137, fmt::format("Must declare the scalar variable \"{}\".", token.text), token.line);
}

}  // namespace salerpt::tsql
