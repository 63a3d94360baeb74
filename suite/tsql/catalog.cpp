#include "suite/tsql/catalog.h"

#include <fmt/format.h>

#include "suite/tsql/error.h"

namespace salerpt::tsql {
namespace {

std::string Quoted(std::string_view text, char quote) {
  std::string result(1, quote);
  for (const char c : text) {
    if (c == quote) result += c;
    result += c;
  }
  return result + quote;
}

std::string_view TextColumn(sqlite3_stmt* statement, int column) {
  const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column));
  return text == nullptr ? std::string_view() : std::string_view(text);
}

}  // namespace

std::string QuoteName(std::string_view name) {
  return Quoted(name, '"');
}

std::string QuoteLiteral(std::string_view text) {
  if (text.find('\0') == std::string_view::npos) return Quoted(text, '\'');
  std::string hex;  // SQLite reads its text to the first zero byte
  for (const char c : text) hex += fmt::format("{:02x}", static_cast<unsigned char>(c));
  return "CAST(x'" + hex + "' AS TEXT)";
}

int TableInfo::Find(std::string_view column) const {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (EqualNames(columns[i].name, column)) return static_cast<int>(i);
  }
  return -1;
}

int TableInfo::Identity() const {
  for (std::size_t i = 0; i < columns.size(); ++i) {
    if (columns[i].identity) return static_cast<int>(i);
  }
  return -1;
}

TablePtr Catalog::Find(const NameParts& name) {
  const std::string& last = name.back();
  if (last.starts_with('#') || last.starts_with('@')) {
    const auto found = temporary_.find(last);
    return found == temporary_.end() ? nullptr : found->second;
  }
  const auto found = permanent_.find(last);
  if (found != permanent_.end()) return found->second;
  TablePtr table = Load(last);
  if (table != nullptr) permanent_.emplace(last, table);
  return table;
}

TablePtr Catalog::Get(const NameParts& name) {
  TablePtr table = Find(name);
  if (table == nullptr) RaiseInvalidObject(fmt::format("{}", fmt::join(name, ".")));
  return table;
}

void Catalog::RaiseUnreadable() const {
  Raise(kNotSupported,
        fmt::format("The schema of the account set cannot be read: {}.", sqlite3_errmsg(connection_)));
}

TablePtr Catalog::Load(std::string_view name) {
  static constexpr std::string_view kQuery =
      "SELECT x.name, x.type, x.\"notnull\", l.name, l.wr FROM pragma_table_list(?1) AS l, "
      "pragma_table_xinfo(l.name) AS x WHERE l.schema = 'main' AND x.hidden <> 1 ORDER BY x.cid";
  sqlite3_stmt* raw = nullptr;
  if (sqlite3_prepare_v2(connection_, kQuery.data(), static_cast<int>(kQuery.size()), &raw, nullptr) !=
      SQLITE_OK) {
    RaiseUnreadable();
  }
  const std::unique_ptr<sqlite3_stmt, decltype(&sqlite3_finalize)> statement(raw, &sqlite3_finalize);
  sqlite3_bind_text(raw, 1, name.data(), static_cast<int>(name.size()), SQLITE_STATIC);
  auto table = std::make_shared<TableInfo>();
  int step = SQLITE_ROW;
  while ((step = sqlite3_step(raw)) == SQLITE_ROW) {
    table->name = TextColumn(raw, 3);
    table->has_rowid = sqlite3_column_int(raw, 4) == 0;
    ColumnInfo column;
    column.name = TextColumn(raw, 0);
    column.type = ParseType(TextColumn(raw, 1));
    if (column.type.kind == TypeKind::kNull) column.type = TextType(kMaxTextSize);
    column.type.nullable = sqlite3_column_int(raw, 2) == 0;
    table->columns.push_back(std::move(column));
  }
  // A locked or damaged account set is no missing table.
  if (step != SQLITE_DONE) RaiseUnreadable();
  if (table->columns.empty()) return nullptr;
  table->sql = "main." + QuoteName(table->name);
  return table;
}

void Catalog::Add(TableInfo table) {
  ++version_;
  if (!table.temporary) {
    permanent_.erase(table.name);
    return;
  }
  auto shared = std::make_shared<TableInfo>(std::move(table));
  temporary_[shared->name] = shared;
}

void Catalog::Remove(const TableInfo& table) {
  ++version_;
  const std::string name = table.name;
  temporary_.erase(name);
  permanent_.erase(name);
}

void Catalog::Forget() {
  ++version_;
  permanent_.clear();
}

std::vector<TablePtr> Catalog::TemporaryTables() const {
  std::vector<TablePtr> tables;
  for (const auto& [name, table] : temporary_) tables.push_back(table);
  return tables;
}

}  // namespace salerpt::tsql
