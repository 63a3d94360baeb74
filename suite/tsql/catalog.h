// What the engine knows about tables: names, columns and their T-SQL types.
#pragma once

#include <sqlite3.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/text.h"
#include "suite/tsql/syntax_tree.h"
#include "suite/tsql/types.h"

namespace salerpt::tsql {

struct ColumnInfo {
  std::string name;
  ColumnType type;
  bool identity = false;
};

struct TableInfo {
  std::string name;  // as created
  std::string sql;   // as SQLite reads it: temp."#DATA"
  bool temporary = false;
  bool has_rowid = true;
  std::int64_t identity_seed = 1;
  std::vector<ColumnInfo> columns;

  // Index of the column of that name, any case; -1 when there is none.
  [[nodiscard]] int Find(std::string_view column) const;
  // Index of the identity column; -1 when there is none.
  [[nodiscard]] int Identity() const;
};
using TablePtr = std::shared_ptr<const TableInfo>;

// A name in double quotes for SQLite.
std::string QuoteName(std::string_view name);
// A text in apostrophes for SQLite.
std::string QuoteLiteral(std::string_view text);

class Catalog {
 public:
  explicit Catalog(sqlite3* connection) : connection_(connection) {}

  // The table that a name means: of tempdb..#x, dbo.t and t only the last part counts. Null when there is
  // none.
  TablePtr Find(const NameParts& name);
  // As Find, but raises 208.
  TablePtr Get(const NameParts& name);

  void Add(TableInfo table);
  void Remove(const TableInfo& table);
  // Forgets what was read from the account set, after a definition changed there.
  void Forget();
  [[nodiscard]] std::vector<TablePtr> TemporaryTables() const;

  // Changes whenever a table comes or goes: translations older than that are stale.
  [[nodiscard]] std::int64_t Version() const { return version_; }

 private:
  TablePtr Load(std::string_view name);
  [[noreturn]] void RaiseUnreadable() const;

  sqlite3* connection_;
  std::map<std::string, TablePtr, NameLess> temporary_;
  std::map<std::string, TablePtr, NameLess> permanent_;
  std::int64_t version_ = 0;
};

}  // namespace salerpt::tsql
