// Statements that make, change and drop tables.
#include <fmt/format.h>

#include <algorithm>

#include "suite/tsql/error.h"
#include "suite/tsql/interpreter.h"
#include "suite/tsql/translator.h"

namespace salerpt::tsql {
namespace {

std::string NameList(const std::vector<std::string>& names) {
  std::string list;
  for (const std::string& name : names) {
    if (!list.empty()) list += ',';
    list += QuoteName(name);
  }
  return list;
}

// Makes the next identity number that of the seed.
void Seed(const Engine& engine, const TableInfo& table) {
  if (table.Identity() < 0) return;
  const char* schema = table.temporary ? "temp" : "main";
  engine.Run(fmt::format("DELETE FROM {}.sqlite_sequence WHERE name = {}", schema, QuoteLiteral(table.name)));
  if (table.identity_seed == 1) return;
  engine.Run(fmt::format("INSERT INTO {}.sqlite_sequence(name, seq) VALUES({}, {})", schema,
                         QuoteLiteral(table.name), table.identity_seed - 1));
}

[[noreturn]] void RaiseExists(const TableInfo& table) {
  Raise(2714, fmt::format("There is already an object named '{}' in the database.", table.name));
}

}  // namespace

std::string StorageType(const ColumnType& type, bool temporary) {
  if (!temporary) return type.Name() + (type.IsText() ? " COLLATE NOCASE" : "");
  if (type.IsText()) return "TEXT COLLATE NOCASE";
  if (type.IsDate()) return "TEXT";
  return type.IsInteger() ? "INTEGER" : "REAL";
}

std::string CreateTableSql(const TableInfo& table, const std::vector<std::string>& options,
                           const std::string& rest) {
  std::string sql;
  for (std::size_t i = 0; i < table.columns.size(); ++i) {
    const ColumnInfo& column = table.columns[i];
    sql += fmt::format(
        "{}{} {}", sql.empty() ? "" : ",", QuoteName(column.name),
        column.identity ? "INTEGER PRIMARY KEY AUTOINCREMENT" : StorageType(column.type, table.temporary));
    if (!column.type.nullable && !column.identity) sql += " NOT NULL";
    if (i < options.size()) sql += options[i];
  }
  return fmt::format("CREATE TABLE {}({}{})", table.sql, sql, rest);
}

void DropTable(SessionState& session, const TableInfo& table) {
  session.engine.Run("DROP TABLE " + table.sql);
  std::erase_if(session.indexes,
                [&](const std::string& name) { return name.starts_with("lookup " + table.name + " "); });
  session.catalog->Remove(table);
}

TableInfo Interpreter::DescribeTable(const CreateTableStatement& body) const {
  TableInfo table;
  table.name = body.table.back();
  table.temporary = table.name.starts_with('#') || table.name.starts_with('@');
  table.sql = (table.temporary ? "temp." : "main.") + QuoteName(table.name);
  for (const ColumnDefinition& definition : body.columns) {
    if (table.Find(definition.name) >= 0) {
      Raise(2705,
            fmt::format(
                "Column names in each table must be unique. Column name '{}' in table '{}' is specified more "
                "than once.",
                definition.name, table.name));
    }
    if (definition.identity && table.Identity() >= 0) {
      Raise(2744,
            fmt::format(
                "Multiple identity columns specified for table '{}'. Only one identity column per table is "
                "allowed.",
                table.name));
    }
    if (definition.identity && !definition.type.IsInteger() && definition.type.kind != TypeKind::kDecimal) {
      Raise(2749,
            fmt::format(
                "Identity column '{}' must be of data type int, bigint, smallint, tinyint, or decimal or "
                "numeric with a scale of 0, and constrained to be nonnullable.",
                definition.name));
    }
    table.columns.push_back(ColumnInfo{definition.name, definition.type, definition.identity});
  }
  return table;
}

void Interpreter::CreateTable(const Statement& statement, const CreateTableStatement& body) {
  TableInfo table = DescribeTable(body);
  if (session_.catalog->Find(body.table) != nullptr) RaiseExists(table);
  Translator translator(*session_.catalog, variables_, statement.line);
  std::vector<std::string> options;
  for (const ColumnDefinition& definition : body.columns) {
    std::string& option = options.emplace_back();
    if (definition.identity) {
      table.identity_seed = definition.identity_seed;
      continue;
    }
    if (definition.primary_key || definition.unique) option += " UNIQUE";
    if (definition.default_value == nullptr) continue;
    option +=
        fmt::format(" DEFAULT ({})", translator.TranslateDefault(*definition.default_value, definition.type));
  }
  std::string rest;
  for (const std::vector<std::string>& key : body.keys) {
    for (const std::string& column : key) {
      if (table.Find(column) < 0) RaiseInvalidColumn(column);
    }
    rest += fmt::format(",UNIQUE({})", NameList(key));
  }
  session_.engine.Run(CreateTableSql(table, options, rest));
  Seed(session_.engine, table);
  session_.catalog->Add(table);
}

Interpreter::Flow Interpreter::Do(const Statement& statement, const CreateTableStatement& body) {
  CreateTable(statement, body);
  return Flow::kNext;
}

void Interpreter::RunInto(Translated& translated) {
  Plan& plan = translated.plan;
  session_.engine.Run(CreateTableSql(plan.into, {}, {}));
  session_.catalog->Add(plan.into);
  const TableInfo table = plan.into;
  const std::vector<std::string> indexes = plan.into_indexes;
  plan.kind = PlanKind::kChange;
  try {
    RunPlan(translated);
  } catch (const TsqlError&) {
    // The statement as a whole leaves nothing behind.
    translated = Translated{};
    DropTable(session_, table);
    throw;
  }
  translated = Translated{};  // another run makes another table
  for (const std::string& column : indexes) {
    session_.engine.Run(fmt::format("CREATE INDEX temp.{} ON {}({})",
                                    QuoteName("into " + table.name + " " + column), QuoteName(table.name),
                                    QuoteName(column)));
  }
}

Interpreter::Flow Interpreter::Do(const Statement& /*statement*/, const CreateIndexStatement& body) {
  const TablePtr table = session_.catalog->Get(body.table);
  for (const std::string& column : body.columns) {
    if (table->Find(column) < 0) {
      Raise(1911, fmt::format("Column name '{}' does not exist in the target table or view.", column));
    }
  }
  session_.engine.Run(fmt::format(
      "CREATE {}INDEX {}.{} ON {}({})", body.unique ? "UNIQUE " : "", table->temporary ? "temp" : "main",
      QuoteName(table->name + " " + body.name), QuoteName(table->name), NameList(body.columns)));
  return Flow::kNext;
}

Interpreter::Flow Interpreter::Do(const Statement& /*statement*/, const DropTableStatement& body) {
  for (const NameParts& name : body.tables) {
    const TablePtr table = session_.catalog->Find(name);
    if (table == nullptr) {
      Raise(3701, fmt::format(
                      "Cannot drop the table '{}', because it does not exist or you do not have permission.",
                      fmt::join(name, ".")));
    }
    DropTable(session_, *table);
  }
  return Flow::kNext;
}

Interpreter::Flow Interpreter::Do(const Statement& statement, const AlterTableStatement& body) {
  const TablePtr found = session_.catalog->Find(body.table);
  if (found == nullptr) {
    Raise(4902, fmt::format(
                    "Cannot find the object \"{}\" because it does not exist or you do not have permissions.",
                    body.table.back()));
  }
  TableInfo table = *found;
  Translator translator(*session_.catalog, variables_, statement.line);
  for (const ColumnDefinition& definition : body.columns) {
    if (definition.identity || definition.primary_key || definition.unique) {
      RaiseNotSupported("ALTER TABLE ADD of a key or identity column", statement.line);
    }
    if (table.Find(definition.name) >= 0) {
      Raise(2705,
            fmt::format(
                "Column names in each table must be unique. Column name '{}' in table '{}' is specified more "
                "than once.",
                definition.name, table.name));
    }
    if (!definition.type.nullable && definition.default_value == nullptr) {
      Raise(4901,
            fmt::format(
                "ALTER TABLE only allows columns to be added that can contain nulls, or have a DEFAULT "
                "definition specified. Column '{}' cannot be added to non-empty table '{}' because it does "
                "not satisfy these conditions.",
                definition.name, table.name));
    }
    std::string sql = fmt::format("ALTER TABLE {} ADD COLUMN {} {}", table.sql, QuoteName(definition.name),
                                  StorageType(definition.type, table.temporary));
    // As on the server, rows that are there get the default only where the column takes no null.
    if (!definition.type.nullable) {
      sql += fmt::format(" NOT NULL DEFAULT {}",
                         translator.TranslateDefault(*definition.default_value, definition.type));
    } else if (definition.default_value != nullptr) {
      RaiseNotSupported("ALTER TABLE ADD of a column that takes null and has a default", statement.line);
    }
    session_.engine.Run(sql);
    table.columns.push_back(ColumnInfo{definition.name, definition.type, false});
  }
  session_.catalog->Add(std::move(table));
  return Flow::kNext;
}

Interpreter::Flow Interpreter::Do(const Statement& /*statement*/, const TruncateStatement& body) {
  const TablePtr table = session_.catalog->Find(body.table);
  if (table == nullptr) {
    Raise(4701, fmt::format(
                    "Cannot find the object \"{}\" because it does not exist or you do not have permissions.",
                    body.table.back()));
  }
  session_.engine.Run("DELETE FROM " + table->sql);
  Seed(session_.engine, *table);
  return Flow::kNext;
}

}  // namespace salerpt::tsql
