#include "suite/tsql/statement.h"

#include <fmt/format.h>

#include "suite/tsql/error.h"

namespace salerpt::tsql {
namespace {

// "table.column" behind the colon of a constraint message; the first one where there are several.
bool SplitConstraint(std::string_view message, std::string_view head, std::string& table,
                     std::string& column) {
  if (!message.starts_with(head)) return false;
  std::string_view rest = message.substr(head.size());
  rest = rest.substr(0, rest.find(','));
  const std::size_t point = rest.rfind('.');
  if (point == std::string_view::npos) return false;
  table = rest.substr(0, point);
  column = rest.substr(point + 1);
  return true;
}

}  // namespace

void Engine::Fail(bool updating) const {
  if (functions->failure) {
    const FunctionState::Failure failure = *functions->failure;
    functions->failure.reset();
    Raise(failure.number, failure.text);
  }
  if ((sqlite3_errcode(connection) & 0xFF) == SQLITE_BUSY) {
    Raise(1222, "Lock request time out period exceeded.");
  }
  const std::string message = sqlite3_errmsg(connection);
  std::string table;
  std::string column;
  if (SplitConstraint(message, "NOT NULL constraint failed: ", table, column)) {
    Raise(515, fmt::format("Cannot insert the value NULL into column '{}', table '{}'; column does not allow "
                           "nulls. {} fails.",
                           column, table, updating ? "UPDATE" : "INSERT"));
  }
  if (SplitConstraint(message, "UNIQUE constraint failed: ", table, column)) {
    Raise(2627, fmt::format("Violation of UNIQUE KEY constraint. Cannot insert duplicate key in object '{}'.",
                            table));
  }
  if (message == "integer overflow") {
    Raise(8115, "Arithmetic overflow error converting expression to data type int.");
  }
  if (message.find("Expression tree is too large") != std::string::npos ||
      message == "parser stack overflow") {
    Raise(191, std::string(kTooDeepText));
  }
  Raise(kNotSupported, fmt::format("The embedded engine could not run the statement: {}.", message));
}

void Engine::Run(const std::string& sql) const {
  functions->failure.reset();
  if (sqlite3_exec(connection, sql.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) Fail();
}

PreparedStatement::PreparedStatement(const Engine& engine, const std::string& sql) {
  engine.functions->failure.reset();
  sqlite3_stmt* raw = nullptr;
  if (sqlite3_prepare_v2(engine.connection, sql.c_str(), static_cast<int>(sql.size()), &raw, nullptr) !=
      SQLITE_OK) {
    engine.Fail();
  }
  statement_.reset(raw);
}

void PreparedStatement::Bind(const Variables& variables) const {
  const int count = sqlite3_bind_parameter_count(statement_.get());
  for (int i = 0; i < count; ++i) {
    const Datum& value = variables.At(i).value;
    if (const auto* integer = std::get_if<std::int64_t>(&value)) {
      sqlite3_bind_int64(statement_.get(), i + 1, *integer);
    } else if (const auto* number = std::get_if<double>(&value)) {
      sqlite3_bind_double(statement_.get(), i + 1, *number);
    } else if (const auto* text = std::get_if<std::string>(&value)) {
      sqlite3_bind_text(statement_.get(), i + 1, text->data(), static_cast<int>(text->size()),
                        SQLITE_TRANSIENT);
    } else {
      sqlite3_bind_null(statement_.get(), i + 1);
    }
  }
}

bool PreparedStatement::Step(const Engine& engine) const {
  const int result = sqlite3_step(statement_.get());
  if (result == SQLITE_ROW) return true;
  if (result != SQLITE_DONE)
    engine.Fail(std::string_view(sqlite3_sql(statement_.get())).starts_with("UPDATE"));
  return false;
}

Value ReadValue(sqlite3_stmt* statement, int column, const ColumnType& type) {
  if (sqlite3_column_type(statement, column) == SQLITE_NULL) return {};
  if (type.IsInteger() || type.kind == TypeKind::kNull) {
    return Value(static_cast<std::int64_t>(sqlite3_column_int64(statement, column)));
  }
  if (type.IsNumber()) return Value(sqlite3_column_double(statement, column));
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  return Value(std::string_view(text == nullptr ? "" : text,
                                static_cast<std::size_t>(sqlite3_column_bytes(statement, column))));
}

Datum ReadDatum(sqlite3_stmt* statement, int column, const ColumnType& type) {
  const Value value = ReadValue(statement, column, type);
  switch (value.GetKind()) {
    case Value::Kind::kInteger:
      return value.Integer();
    case Value::Kind::kDouble:
      return value.Double();
    case Value::Kind::kText:
      return std::string(value.Text());
    default:
      return {};
  }
}

}  // namespace salerpt::tsql
