// The embedded T-SQL engine: runs batches as the server would, on an SQLite connection.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>

#include "runtime/error.h"
#include "suite/tsql/types.h"

namespace salerpt::tsql {

// One column of a row set, as the server would describe it. Expressions without a name have an empty one.
struct Column {
  std::string name;
  ColumnType type;
};

// A cell while its row is being delivered; a text view lives until the sink's Row returns.
class Value {
 public:
  enum class Kind : std::uint8_t { kNull, kInteger, kDouble, kText };

  Value() = default;
  explicit Value(std::int64_t integer) : kind_(Kind::kInteger), integer_(integer) {}
  explicit Value(double number) : kind_(Kind::kDouble), double_(number) {}
  explicit Value(std::string_view text) : kind_(Kind::kText), text_(text) {}

  // Follows from the column's type: integers and bit give kInteger; decimal, money, real and float kDouble (a
  // decimal is the double nearest to its digits); text and dates kText, dates as 'YYYY-MM-DD HH:MM:SS' (with
  // '.mmm' when not 0).
  [[nodiscard]] Kind GetKind() const { return kind_; }
  [[nodiscard]] bool IsNull() const { return kind_ == Kind::kNull; }
  // Only for a cell of that kind.
  [[nodiscard]] std::int64_t Integer() const { return integer_; }
  [[nodiscard]] double Double() const { return double_; }
  [[nodiscard]] std::string_view Text() const { return text_; }
  // As the server prints it: decimals with all digits of their scale, null as "NULL".
  [[nodiscard]] std::string Format(const ColumnType& type) const;

 private:
  Kind kind_ = Kind::kNull;
  union {
    std::int64_t integer_ = 0;
    double double_;
  };
  std::string_view text_;
};

// Takes the rows of the selects of a batch, one select after the other.
class RowSink {
 public:
  virtual ~RowSink() = default;
  virtual void BeginRows(std::span<const Column> columns) = 0;
  virtual void Row(std::span<const Value> cells) = 0;
  virtual void EndRows() = 0;
};

// A failed batch. Number and words are the server's own, such as 208 "Invalid object name 't_Foo'."; what the
// embedded engine does not know is refused with 50000 and the name of the statement.
class TsqlError : public RuntimeError {
 public:
  TsqlError(std::int32_t number, const std::string& description, int line)
      : RuntimeError(number, "T-SQL", description), line_(line) {}
  // 1-based line in the batch where the failing statement, or the token at fault, stands; 0 when not known.
  [[nodiscard]] int Line() const { return line_; }

 private:
  int line_;
};

// One connection to an account set, as a program has one to the server. Temporary tables live from batch to
// batch; variables and table variables end with the batch. Not for use from two threads.
class Session {
 public:
  // Registers its functions, its collation and an in-memory temporary store on the connection, which it does
  // not own and which must outlive it. One session a connection.
  explicit Session(sqlite3* connection);
  // Drops the temporary tables that are left.
  ~Session();
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  // Runs a batch. Every SELECT that returns rows goes to the sink, in order. Raises TsqlError: a syntax
  // error, an undeclared variable or an unknown function before anything ran; any other error at its
  // statement, whose own changes are undone while those of earlier statements stay, as on the server.
  void Execute(std::string_view batch, RowSink& sink);
  // Runs a batch whose rows nobody reads.
  void Execute(std::string_view batch);

  // Drops the #tables that earlier batches left behind.
  void DropTemporaryTables();

  // Ends a batch with error 50000 after so many statements, loop rounds counted anew; 0 is no limit (as at
  // the start).
  void SetStatementLimit(std::int64_t statements);
  // Rows that the last inserting, updating or deleting statement touched.
  [[nodiscard]] std::int64_t RowsAffected() const;

 private:
  class Impl;
  std::unique_ptr<Impl> impl_;
};

}  // namespace salerpt::tsql
