#include "suite/tsql/session.h"

#include "suite/tsql/decimal.h"
#include "suite/tsql/error.h"
#include "suite/tsql/interpreter.h"
#include "suite/tsql/number_text.h"
#include "suite/tsql/parser.h"

namespace salerpt::tsql {
namespace {

class NoRows final : public RowSink {
 public:
  void BeginRows(std::span<const Column> /*columns*/) override {}
  void Row(std::span<const Value> /*cells*/) override {}
  void EndRows() override {}
};

}  // namespace

std::string Value::Format(const ColumnType& type) const {
  switch (kind_) {
    case Kind::kNull:
      return "NULL";
    case Kind::kInteger:
      return std::to_string(integer_);
    case Kind::kDouble:
      return type.IsScaled() ? FormatDecimal(double_, type.scale) : FloatText(double_);
    default:
      return std::string(text_);
  }
}

class Session::Impl {
 public:
  explicit Impl(sqlite3* connection) : catalog_(connection) {
    state_.engine = Engine{connection, &functions_};
    state_.catalog = &catalog_;
    state_.groups = &groups_;
    RegisterFunctions(connection, functions_);
    RegisterGroupsTable(connection, groups_);
    state_.engine.Run("PRAGMA temp_store=MEMORY");
  }

  void Execute(std::string_view text, RowSink& sink) {
    const Batch batch = ParseBatch(text);
    // One transaction a batch spares a lock and a look at the file for every statement.
    const bool begun = sqlite3_get_autocommit(state_.engine.connection) != 0;
    if (begun) state_.engine.Run("BEGIN");
    try {
      Interpreter(state_, batch, sink).Run();
    } catch (...) {
      EndBatch(begun);
      throw;
    }
    EndBatch(begun);
  }

  void DropTemporaryTables() {
    for (const TablePtr& table : catalog_.TemporaryTables()) DropTable(state_, *table);
  }

  void SetStatementLimit(std::int64_t statements) { state_.statement_limit = statements; }
  [[nodiscard]] std::int64_t RowsAffected() const { return state_.rows_affected; }

 private:
  // What the statements of a batch did stays, also when a later one failed.
  void EndBatch(bool begun) {
    functions_.variables = nullptr;
    functions_.BeginStatement();
    groups_.groups = nullptr;
    if (begun && sqlite3_get_autocommit(state_.engine.connection) != 0) {
      ForgetLostTables();  // SQLite has taken everything back, out of memory or disk
    } else if (begun) {
      state_.engine.Run("COMMIT");
    }
    for (const TablePtr& table : catalog_.TemporaryTables()) {
      if (table->name.starts_with('@')) DropTable(state_, *table);
    }
  }

  void ForgetLostTables() {
    catalog_.Forget();
    state_.indexes.clear();
    for (const TablePtr& table : catalog_.TemporaryTables()) {
      const PreparedStatement look(
          state_.engine,
          "SELECT 1 FROM temp.sqlite_schema WHERE type='table' AND name=" + QuoteLiteral(table->name));
      if (!look.Step(state_.engine)) catalog_.Remove(*table);
    }
  }

  FunctionState functions_;
  GroupsTableState groups_;
  Catalog catalog_;
  SessionState state_;
};

Session::Session(sqlite3* connection) : impl_(std::make_unique<Impl>(connection)) {}

// As the server does when a connection ends. What cannot be dropped any more goes with the connection itself.
Session::~Session() {
  try {
    impl_->DropTemporaryTables();
  } catch (const TsqlError&) {
  }
}

void Session::Execute(std::string_view batch, RowSink& sink) {
  impl_->Execute(batch, sink);
}

void Session::Execute(std::string_view batch) {
  NoRows nobody;
  impl_->Execute(batch, nobody);
}

void Session::DropTemporaryTables() {
  impl_->DropTemporaryTables();
}
void Session::SetStatementLimit(std::int64_t statements) {
  impl_->SetStatementLimit(statements);
}
std::int64_t Session::RowsAffected() const {
  return impl_->RowsAffected();
}

}  // namespace salerpt::tsql
