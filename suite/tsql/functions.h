// The functions that translated statements call on the connection, beside those of SQLite itself.
#pragma once

#include <sqlite3.h>

#include <optional>
#include <string>
#include <string_view>

#include "suite/tsql/datetime.h"
#include "suite/tsql/kept_values.h"
#include "suite/tsql/variables.h"

namespace salerpt::tsql {

// What functions and session share. SQLite carries the text of an error but not the server's number: it waits
// here.
struct FunctionState {
  struct Failure {
    int number;
    std::string text;
  };
  std::optional<Failure> failure;
  const Variables* variables = nullptr;  // of the batch that runs
  KeptValues kept;                       // of the statement that runs
  std::optional<DateTime> now;           // of the statement that runs, once it has asked for it

  void BeginStatement() {
    failure.reset();
    kept.Clear();
    now.reset();
  }
};

// Registers everything; `state` must live as long as the connection uses the functions.
void RegisterFunctions(sqlite3* connection, FunctionState& state);
void RegisterTextFunctions(sqlite3* connection, FunctionState& state);
void RegisterNumberFunctions(sqlite3* connection, FunctionState& state);
void RegisterDateFunctions(sqlite3* connection, FunctionState& state);
void RegisterAggregates(sqlite3* connection, FunctionState& state);

// A call as the bodies see it. Bodies return nothing when an argument is null (the result is null then) and
// may raise TsqlError.
class Call {
 public:
  Call(sqlite3_context* context, int count, sqlite3_value** values)
      : context_(context), count_(count), values_(values) {}

  [[nodiscard]] int Count() const { return count_; }
  [[nodiscard]] bool IsNull(int index) const { return sqlite3_value_type(values_[index]) == SQLITE_NULL; }
  [[nodiscard]] int Type(int index) const { return sqlite3_value_type(values_[index]); }
  [[nodiscard]] std::int64_t Integer(int index) const { return sqlite3_value_int64(values_[index]); }
  [[nodiscard]] double Double(int index) const { return sqlite3_value_double(values_[index]); }
  [[nodiscard]] std::string_view Text(int index) const;
  [[nodiscard]] FunctionState& State() const;

  void Return(std::int64_t value) const { sqlite3_result_int64(context_, value); }
  void Return(double value) const { sqlite3_result_double(context_, value); }
  void Return(std::string_view value) const;
  // An argument as it came.
  void ReturnArgument(int index) const { sqlite3_result_value(context_, values_[index]); }

 private:
  sqlite3_context* context_;
  int count_;
  sqlite3_value** values_;
};

using FunctionBody = void (*)(const Call&);

struct FunctionDefinition {
  const char* name;
  int arguments;
  FunctionBody body;
  bool pure = true;  // the same arguments give the same result
};

// Registers one function; null arguments give a null result without a call of the body.
void RegisterFunction(sqlite3* connection, FunctionState& state, const FunctionDefinition& definition);
// Keeps a failure for the session and tells SQLite.
void ReportFailure(sqlite3_context* context, int number, const std::string& text);

// Compares as the server's collation does: without regard to ASCII case and to blanks at the end.
int CompareTexts(std::string_view a, std::string_view b);

}  // namespace salerpt::tsql
