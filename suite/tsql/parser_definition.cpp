// CREATE, ALTER, TRUNCATE and DECLARE.
#include <fmt/format.h>

#include "runtime/text.h"
#include "suite/tsql/error.h"
#include "suite/tsql/parser.h"

namespace salerpt::tsql {

void Parser::ParseCreate(Statement& statement) {
  if (TakeWord("table")) {
    statement.body = ParseCreateTable();
    return;
  }
  const bool unique = TakeWord("unique");
  if (TakeWord("clustered") || TakeWord("nonclustered")) {
  }
  if (TakeWord("index")) {
    statement.body = ParseCreateIndex(unique);
    return;
  }
  if (Peek().kind == TokenKind::kWord) RefuseHere("CREATE " + UpperCase(Peek().text));
  FailHere();
}

CreateTableStatement Parser::ParseCreateTable() {
  CreateTableStatement table;
  if (Peek().kind == TokenKind::kVariable) FailHere();
  table.table = TakeNameParts();
  ParseTableElements(table);
  if (TakeWord("on")) TakeName();  // a file group means nothing here
  return table;
}

void Parser::ParseTableElements(CreateTableStatement& table) {
  ExpectSymbol("(");
  do {
    if (AtSymbol(")") && !table.columns.empty()) break;  // a comma may stand behind the last column
    if (!ParseTableConstraint(table))
      table.columns.push_back(ParseColumnDefinition(static_cast<int>(table.columns.size()) + 1));
  } while (TakeSymbol(","));
  ExpectSymbol(")");
}

// PRIMARY KEY (a, b), UNIQUE (a) or CONSTRAINT name before one of them.
bool Parser::ParseTableConstraint(CreateTableStatement& table) {
  if (!AtWord("constraint") && !AtWord("primary") && !AtWord("unique") && !AtWord("foreign") &&
      !AtWord("check")) {
    return false;
  }
  if (TakeWord("constraint")) TakeName();
  if (AtWord("foreign") || AtWord("check")) RefuseHere(UpperCase(Peek().text));
  if (TakeWord("primary")) {
    ExpectWord("key");
  } else {
    ExpectWord("unique");
  }
  if (TakeWord("clustered") || TakeWord("nonclustered")) {
  }
  table.keys.push_back(ParseColumnNames());
  return true;
}

std::vector<std::string> Parser::ParseColumnNames() {
  std::vector<std::string> names;
  ExpectSymbol("(");
  do {
    names.push_back(TakeName());
    while (TakeSymbol(".")) names.back() = TakeName();
    if (TakeWord("asc") || TakeWord("desc")) {
    }
  } while (TakeSymbol(","));
  ExpectSymbol(")");
  return names;
}

ColumnDefinition Parser::ParseColumnDefinition(int number) {
  ColumnDefinition column;
  column.name = TakeName();
  if (AtWord("as")) RefuseHere("A computed column");
  if (AtSymbol(",") || AtSymbol(")")) {
    Raise(173, fmt::format("The definition for column '{}' must include a data type.", column.name),
          Peek().line);
  }
  column.type = ParseTypeName(number, column.name);
  bool more = true;
  while (more) ParseColumnOption(column, more);
  return column;
}

void Parser::ParseColumnOption(ColumnDefinition& column, bool& more) {
  if (TakeWord("not")) {
    ExpectWord("null");
    column.type.nullable = false;
  } else if (TakeWord("null")) {
    column.type.nullable = true;
  } else if (TakeWord("identity")) {
    ParseIdentity(column);
  } else if (TakeWord("default")) {
    column.default_value = ParseUnary();
  } else if (TakeWord("constraint")) {
    TakeName();
  } else if (TakeWord("collate")) {
    TakeName();
  } else if (TakeWord("primary")) {
    ExpectWord("key");
    column.primary_key = true;
    column.type.nullable = false;
  } else if (TakeWord("unique")) {
    column.unique = true;
  } else if (AtWord("references") || AtWord("check") || AtWord("foreign")) {
    RefuseHere(UpperCase(Peek().text));
  } else if (!TakeWord("clustered") && !TakeWord("nonclustered")) {
    more = false;
  }
}

void Parser::ParseIdentity(ColumnDefinition& column) {
  column.identity = true;
  column.type.nullable = false;
  if (!TakeSymbol("(")) return;
  const bool negative = TakeSymbol("-");
  column.identity_seed = negative ? -TakeSmallNumber() : TakeSmallNumber();
  ExpectSymbol(",");
  if (TakeSymbol("-") || TakeSmallNumber() != 1) RefuseHere("An identity step other than 1");
  ExpectSymbol(")");
}

ColumnType Parser::ParseTypeName(int column, std::string_view name) {
  const Token& token = Peek();
  if (!AtName()) FailHere();
  ColumnType type = ParseType(token.text);
  if (type.kind == TypeKind::kNull) {
    if (column == 0) Raise(243, fmt::format("Type {} is not a defined system type.", token.text), token.line);
    Raise(2715,
          fmt::format("Column, parameter, or variable #{}: Cannot find data type {}.", column, token.text),
          token.line);
  }
  Take();
  if (type.kind == TypeKind::kFloat) TakeWord("precision");
  if (type.IsText()) {
    ParseTextSize(type, name);
  } else if (type.kind == TypeKind::kDecimal || type.kind == TypeKind::kFloat) {
    ParsePrecision(type, column);
  }
  return type;
}

void Parser::ParseTextSize(ColumnType& type, std::string_view column) {
  if (!TakeSymbol("(")) return;
  const int line = Peek().line;
  type.size = TakeWord("max") ? kMaxTextSize : TakeSmallNumber();
  if (type.size < 1) {
    Raise(1001, fmt::format("Line {}: Length or precision specification {} is invalid.", line, type.size),
          line);
  }
  if (type.size > kMaxTextSize) {
    Raise(
        131,
        fmt::format("The size ({}) given to the {} '{}' exceeds the maximum allowed for any data type ({}).",
                    type.size, column.empty() ? "type" : "column", column.empty() ? type.Word() : column,
                    kMaxTextSize),
        line);
  }
  ExpectSymbol(")");
}

void Parser::ParsePrecision(ColumnType& type, int column) {
  if (!TakeSymbol("(")) return;
  const int line = Peek().line;
  const int precision = TakeSmallNumber();
  const int scale = TakeSymbol(",") ? TakeSmallNumber() : 0;
  const int most = type.kind == TypeKind::kDecimal ? kMaxPrecision : 53;
  const std::string head = column > 0 ? fmt::format("Column or parameter #{}: S", column) : "S";
  if (precision < 1 || precision > most) {
    Raise(2750,
          fmt::format("{}pecified column precision {} is greater than the maximum precision of {}.", head,
                      precision, most),
          line);
  }
  if (scale > precision) {
    if (column == 0) Raise(192, "The scale must be less than or equal to the precision.", line);
    Raise(2751,
          fmt::format("{}pecified column scale {} is greater than the specified precision of {}.", head,
                      scale, precision),
          line);
  }
  if (type.kind == TypeKind::kDecimal) type = DecimalType(precision, scale);
  ExpectSymbol(")");
}

CreateIndexStatement Parser::ParseCreateIndex(bool unique) {
  CreateIndexStatement index;
  index.unique = unique;
  index.name = TakeName();
  ExpectWord("on");
  index.table = TakeNameParts();
  index.columns = ParseColumnNames();
  return index;
}

AlterTableStatement Parser::ParseAlter() {
  if (!AtWord("table")) RefuseHere("ALTER " + UpperCase(Peek().text));
  Take();
  AlterTableStatement alter;
  alter.table = TakeNameParts();
  if (Peek().kind == TokenKind::kEnd) FailHere();
  if (!AtWord("add") || AtWord("constraint", 1)) RefuseHere("ALTER TABLE other than ADD column");
  Take();
  do {
    alter.columns.push_back(ParseColumnDefinition(static_cast<int>(alter.columns.size()) + 1));
  } while (TakeSymbol(","));
  return alter;
}

TruncateStatement Parser::ParseTruncate() {
  ExpectWord("table");
  return TruncateStatement{TakeNameParts()};
}

DeclareStatement Parser::ParseDeclare() {
  DeclareStatement declare;
  do {
    if (Peek().kind != TokenKind::kVariable) {
      if (AtName() && AtWord("cursor", 1)) RefuseHere("DECLARE CURSOR");
      FailHere();
    }
    const Token name = Take();
    TakeWord("as");
    DeclareVariable(name.text, name.line);
    if (TakeWord("table")) {
      declare.table = std::make_unique<CreateTableStatement>();
      declare.table->table = {name.text};
      ParseTableElements(*declare.table);
      return declare;
    }
    if (AtWord("cursor")) RefuseHere("DECLARE CURSOR");
    DeclareStatement::Variable variable;
    variable.name = name.text;
    variable.type = ParseTypeName(static_cast<int>(declare.variables.size()) + 1);
    declared_.push_back(DeclaredVariable{variable.name, variable.type});
    if (TakeSymbol("=")) variable.value = ParseExpression();
    declare.variables.push_back(std::move(variable));
  } while (TakeSymbol(","));
  return declare;
}

}  // namespace salerpt::tsql
