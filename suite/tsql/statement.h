// A prepared SQLite statement, and SQLite's failures in the server's words.
#pragma once

#include <sqlite3.h>

#include <memory>
#include <string>

#include "suite/tsql/functions.h"
#include "suite/tsql/session.h"
#include "suite/tsql/variables.h"

namespace salerpt::tsql {

// The connection with what belongs to it.
struct Engine {
  sqlite3* connection = nullptr;
  FunctionState* functions = nullptr;

  // Raises what a failed call means: the failure that a function left, a constraint in the server's words, or
  // 50000.
  // `updating`: an UPDATE failed.
  [[noreturn]] void Fail(bool updating = false) const;
  void Run(const std::string& sql) const;
};

class PreparedStatement {
 public:
  PreparedStatement() = default;
  PreparedStatement(const Engine& engine, const std::string& sql);

  [[nodiscard]] explicit operator bool() const { return statement_ != nullptr; }
  [[nodiscard]] sqlite3_stmt* Get() const { return statement_.get(); }
  // Parameter i + 1 is variable i.
  void Bind(const Variables& variables) const;
  // False when there is no further row.
  [[nodiscard]] bool Step(const Engine& engine) const;
  void Reset() const { sqlite3_reset(statement_.get()); }

 private:
  struct Finalizer {
    void operator()(sqlite3_stmt* statement) const { sqlite3_finalize(statement); }
  };
  std::unique_ptr<sqlite3_stmt, Finalizer> statement_;
};

// Resets a statement at the end of a scope, also when an error flies.
class ResetGuard {
 public:
  explicit ResetGuard(const PreparedStatement& statement) : statement_(statement) {}
  ~ResetGuard() { statement_.Reset(); }
  ResetGuard(const ResetGuard&) = delete;
  ResetGuard& operator=(const ResetGuard&) = delete;

 private:
  const PreparedStatement& statement_;
};

// A cell of the current row as its column's type wants it.
Value ReadValue(sqlite3_stmt* statement, int column, const ColumnType& type);
Datum ReadDatum(sqlite3_stmt* statement, int column, const ColumnType& type);

}  // namespace salerpt::tsql
