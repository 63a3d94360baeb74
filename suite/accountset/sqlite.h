// SQLite with exceptions: a connection and prepared statements that raise RuntimeError.
#pragma once

#include <concepts>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "suite/accountset/decimal.h"

struct sqlite3;
struct sqlite3_stmt;

namespace salerpt::accountset {

// A connection. Every error carries the name of the file, what SQLite says of it and, where it is the
// statement's fault, the statement.
class Database {
 public:
  // Makes `path` when `create` is set, else opens an existing file. Errors call it `name` and come from
  // `source`.
  Database(const std::filesystem::path& path, bool create, std::string name, std::string source);

  // Runs statements that give no rows.
  void Execute(const std::string& sql);
  // The first column of the first row as a number; 0 without a row.
  std::int64_t Number(const std::string& sql);

  // Closes the connection, so that an error that comes only then is told and not lost.
  void Finish();

  // Raises the error `code` of the statement `sql`.
  [[noreturn]] void Fail(int code, std::string_view sql) const;

  [[nodiscard]] sqlite3* Handle() const { return handle_.get(); }
  // Hands the connection over to the caller, who closes it.
  [[nodiscard]] sqlite3* Release() { return handle_.release(); }

 private:
  struct Close {
    void operator()(sqlite3* handle) const noexcept;
  };
  std::string name_;
  std::string source_;
  std::unique_ptr<sqlite3, Close> handle_;
};

// A prepared insert, run once per row. The database must outlive it.
class Insert {
 public:
  // `columns` in the order in which Row gets their values. Columns that are left out take their defaults.
  Insert(Database& database, std::string_view table, std::initializer_list<std::string_view> columns);

  // One row: a value per column. A nullptr or an empty optional is null.
  template <typename... Values>
  void Row(const Values&... values) {
    int index = 0;
    (Bind(++index, values), ...);
    Step(index);
  }

 private:
  struct Finalize {
    void operator()(sqlite3_stmt* statement) const noexcept;
  };
  void Bind(int index, std::int64_t value);
  void Bind(int index, std::string_view text);
  void Bind(int index, std::nullptr_t);
  void Bind(int index, Decimal number);
  void Bind(int index, std::integral auto value) { Bind(index, static_cast<std::int64_t>(value)); }
  void Bind(int index, const std::string& text) { Bind(index, std::string_view(text)); }
  void Bind(int index, const char* text) { Bind(index, std::string_view(text)); }
  template <typename Value>
  void Bind(int index, const std::optional<Value>& value) {
    if (value) {
      Bind(index, *value);
    } else {
      Bind(index, nullptr);
    }
  }
  // Runs the statement with `bound` values; raises where the columns are not as many.
  void Step(int bound);

  Database* database_;
  int columns_ = 0;
  std::unique_ptr<sqlite3_stmt, Finalize> statement_;
};

}  // namespace salerpt::accountset
