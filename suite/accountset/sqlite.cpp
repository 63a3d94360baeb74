#include "suite/accountset/sqlite.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <utility>

#include "suite/accountset/errors.h"

namespace salerpt::accountset {
namespace {

std::int32_t ErrorNumber(int code) {
  // A disk can be full for this file alone (a quota, a limit): then the write fails as such.
  if (code == SQLITE_IOERR_WRITE) return kDiskFull;
  switch (code & 0xFF) {
    case SQLITE_FULL:
      return kDiskFull;
    case SQLITE_PERM:
    case SQLITE_READONLY:
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return kPermissionDenied;
    case SQLITE_CANTOPEN:
      return kPathAccess;
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
      return kBadFormat;
    default:
      return kDeviceError;
  }
}

// What the code means to the one who asked for the file, in place of the library's own word where that is
// bare.
std::string Reason(int code, const char* message) {
  switch (code & 0xFF) {
    case SQLITE_FULL:
      return "no room left on the disk";
    case SQLITE_IOERR:
      return "the disk did not take or give the data (is it full?)";
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
      return "another program is writing to it";
    case SQLITE_NOTADB:
      return "it is no account set (not a database file)";
    default:
      return message;
  }
}

bool IsStatementFault(int code) {
  return code == SQLITE_ERROR || code == SQLITE_CONSTRAINT || code == SQLITE_RANGE;
}

}  // namespace

void Database::Close::operator()(sqlite3* handle) const noexcept {
  sqlite3_close_v2(handle);
}

Database::Database(const std::filesystem::path& path, bool create, std::string name, std::string source)
    : name_(std::move(name)), source_(std::move(source)) {
  sqlite3* handle = nullptr;
  const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | (create ? SQLITE_OPEN_CREATE : 0);
  const int code = sqlite3_open_v2(path.c_str(), &handle, flags, nullptr);
  handle_.reset(handle);
  if (code != SQLITE_OK) Fail(code, "");
}

void Database::Execute(const std::string& sql) {
  const int code = sqlite3_exec(handle_.get(), sql.c_str(), nullptr, nullptr, nullptr);
  if (code != SQLITE_OK) Fail(code, sql);
}

std::int64_t Database::Number(const std::string& sql) {
  sqlite3_stmt* raw = nullptr;
  int code = sqlite3_prepare_v2(handle_.get(), sql.c_str(), -1, &raw, nullptr);
  std::int64_t number = 0;
  if (code == SQLITE_OK) {
    code = sqlite3_step(raw);
    if (code == SQLITE_ROW) number = sqlite3_column_int64(raw, 0);
  }
  sqlite3_finalize(raw);
  if (code != SQLITE_ROW && code != SQLITE_DONE) Fail(code, sql);
  return number;
}

void Database::Finish() {
  const int code = sqlite3_close(handle_.get());
  if (code != SQLITE_OK) Fail(code, "close");
  static_cast<void>(handle_.release());
}

void Database::Fail(int code, std::string_view sql) const {
  const char* message = handle_ ? sqlite3_errmsg(handle_.get()) : sqlite3_errstr(code);
  std::string text = fmt::format("{}: {}", name_, Reason(code, message));
  if (IsStatementFault(code & 0xFF) && !sql.empty()) text += fmt::format(" in: {}", sql.substr(0, 200));
  const int extended = handle_ ? sqlite3_extended_errcode(handle_.get()) : code;
  throw RuntimeError(ErrorNumber(extended), source_, text);
}

void Insert::Finalize::operator()(sqlite3_stmt* statement) const noexcept {
  sqlite3_finalize(statement);
}

Insert::Insert(Database& database, std::string_view table, std::initializer_list<std::string_view> columns)
    : database_(&database), columns_(static_cast<int>(columns.size())) {
  std::string names;
  std::string marks;
  for (const auto column : columns) {
    names += names.empty() ? "" : ",";
    names += column;
    marks += marks.empty() ? "?" : ",?";
  }
  const std::string sql = fmt::format("INSERT INTO {}({}) VALUES({})", table, names, marks);
  sqlite3_stmt* raw = nullptr;
  const int code =
      sqlite3_prepare_v3(database.Handle(), sql.c_str(), -1, SQLITE_PREPARE_PERSISTENT, &raw, nullptr);
  if (code != SQLITE_OK) database.Fail(code, sql);
  statement_.reset(raw);
}

void Insert::Bind(int index, std::int64_t value) {
  sqlite3_bind_int64(statement_.get(), index, value);
}

void Insert::Bind(int index, std::string_view text) {
  sqlite3_bind_text(statement_.get(), index, text.data(), static_cast<int>(text.size()), SQLITE_STATIC);
}

void Insert::Bind(int index, std::nullptr_t) {
  sqlite3_bind_null(statement_.get(), index);
}

void Insert::Bind(int index, Decimal number) {
  const Decimal shortened = Shortened(number);
  if (shortened.scale == 0) {
    sqlite3_bind_int64(statement_.get(), index, shortened.units);
  } else {
    sqlite3_bind_double(statement_.get(), index, shortened.ToDouble());
  }
}

void Insert::Step(int bound) {
  if (bound != columns_) {
    database_->Fail(SQLITE_RANGE, sqlite3_sql(statement_.get()));
  }
  const int code = sqlite3_step(statement_.get());
  sqlite3_reset(statement_.get());
  if (code != SQLITE_DONE) database_->Fail(code, sqlite3_sql(statement_.get()));
}

}  // namespace salerpt::accountset
