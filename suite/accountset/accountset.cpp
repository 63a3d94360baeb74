#include "suite/accountset/accountset.h"

#include <fmt/format.h>
#include <sqlite3.h>

#include <system_error>
#include <utility>

#include "suite/accountset/errors.h"
#include "suite/accountset/sqlite.h"

namespace salerpt::accountset {
namespace {

constexpr const char* kSource = "AccountSet:Open";

// A write of another program is waited for this long. Temporary tables stay in memory; reading goes through a
// large cache, since a report scans most of a table.
constexpr const char* kPragmas =
    "PRAGMA busy_timeout=5000; PRAGMA temp_store=MEMORY; PRAGMA cache_size=-65536; PRAGMA "
    "mmap_size=1073741824;";

void CheckIsFile(const std::filesystem::path& path) {
  std::error_code error;
  const auto type = std::filesystem::status(path, error).type();
  if (type == std::filesystem::file_type::regular) return;
  if (type == std::filesystem::file_type::not_found) {
    throw RuntimeError(kFileNotFound, kSource, fmt::format("{}: no such account set", path.string()));
  }
  throw RuntimeError(kBadFormat, kSource,
                     fmt::format("{}: it is no account set (not a file)", path.string()));
}

void CheckMark(Database& database, const std::filesystem::path& path) {
  if (database.Number("PRAGMA application_id") != kApplicationId) {
    throw RuntimeError(
        kBadFormat, kSource,
        fmt::format("{}: it is no account set (a database of another program)", path.string()));
  }
  const std::int64_t version = database.Number("PRAGMA user_version");
  if (version != kSchemaVersion) {
    throw RuntimeError(kBadFormat, kSource,
                       fmt::format("{}: it is an account set of version {}, version {} was expected",
                                   path.string(), version, kSchemaVersion));
  }
}

}  // namespace

void AccountSet::Close::operator()(sqlite3* connection) const noexcept {
  sqlite3_close_v2(connection);
}

AccountSet::AccountSet(std::filesystem::path path, sqlite3* connection)
    : path_(std::move(path)), connection_(connection) {}

AccountSet AccountSet::Open(const std::filesystem::path& db) {
  CheckIsFile(db);
  Database database(db, false, db.string(), kSource);
  database.Execute(kPragmas);
  CheckMark(database, db);
  return {db, database.Release()};
}

}  // namespace salerpt::accountset
