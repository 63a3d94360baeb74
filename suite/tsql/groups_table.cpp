// The virtual table over finished groups.
#include <fmt/format.h>

#include "suite/tsql/groups.h"

namespace salerpt::tsql {
namespace {

struct Table {
  sqlite3_vtab base;
  GroupsTableState* state;
};

struct Cursor {
  sqlite3_vtab_cursor base;
  const Groups* groups;
  std::size_t row;
};

Cursor* Of(sqlite3_vtab_cursor* cursor) {
  return reinterpret_cast<Cursor*>(cursor);
}

int Connect(sqlite3* connection, void* state, int /*argc*/, const char* const* /*argv*/, sqlite3_vtab** table,
            char** /*error*/) {
  std::string columns;
  for (int i = 0; i < kMaxGroupColumns; ++i) columns += fmt::format("{}c{}", i == 0 ? "" : ",", i);
  const int result = sqlite3_declare_vtab(connection, fmt::format("CREATE TABLE x({})", columns).c_str());
  if (result != SQLITE_OK) return result;
  *table = reinterpret_cast<sqlite3_vtab*>(new Table{{}, static_cast<GroupsTableState*>(state)});
  return SQLITE_OK;
}

int Disconnect(sqlite3_vtab* table) {
  delete reinterpret_cast<Table*>(table);
  return SQLITE_OK;
}

int BestIndex(sqlite3_vtab* /*table*/, sqlite3_index_info* info) {
  info->estimatedCost = 1e6;
  info->estimatedRows = 1'000'000;
  return SQLITE_OK;
}

int Open(sqlite3_vtab* /*table*/, sqlite3_vtab_cursor** cursor) {
  *cursor = reinterpret_cast<sqlite3_vtab_cursor*>(new Cursor{{}, nullptr, 0});
  return SQLITE_OK;
}

int Close(sqlite3_vtab_cursor* cursor) {
  delete Of(cursor);
  return SQLITE_OK;
}

int Filter(sqlite3_vtab_cursor* cursor, int /*index*/, const char* /*name*/, int /*count*/,
           sqlite3_value** /*values*/) {
  Of(cursor)->groups = reinterpret_cast<Table*>(cursor->pVtab)->state->groups;
  Of(cursor)->row = 0;
  return SQLITE_OK;
}

int Next(sqlite3_vtab_cursor* cursor) {
  ++Of(cursor)->row;
  return SQLITE_OK;
}

int AtEnd(sqlite3_vtab_cursor* cursor) {
  const Groups* groups = Of(cursor)->groups;
  return groups == nullptr || Of(cursor)->row >= groups->RowCount() ? 1 : 0;
}

int ReadColumn(sqlite3_vtab_cursor* cursor, sqlite3_context* context, int column) {
  const Groups& groups = *Of(cursor)->groups;
  if (static_cast<std::size_t>(column) >= groups.ColumnCount()) return SQLITE_OK;
  const Cell cell = groups.At(Of(cursor)->row, static_cast<std::size_t>(column));
  switch (cell.kind) {
    case Cell::Kind::kInteger:
      sqlite3_result_int64(context, cell.integer);
      break;
    case Cell::Kind::kDouble:
      sqlite3_result_double(context, cell.number);
      break;
    case Cell::Kind::kText:
      // The groups outlive the statement.
      sqlite3_result_text(context, cell.text, static_cast<int>(cell.size), SQLITE_STATIC);
      break;
    default:
      break;
  }
  return SQLITE_OK;
}

int RowId(sqlite3_vtab_cursor* cursor, sqlite3_int64* id) {
  *id = static_cast<sqlite3_int64>(Of(cursor)->row);
  return SQLITE_OK;
}

const sqlite3_module kModule = {
    .iVersion = 0,
    .xCreate = nullptr,  // there is one such table and nobody creates it
    .xConnect = &Connect,
    .xBestIndex = &BestIndex,
    .xDisconnect = &Disconnect,
    .xDestroy = nullptr,
    .xOpen = &Open,
    .xClose = &Close,
    .xFilter = &Filter,
    .xNext = &Next,
    .xEof = &AtEnd,
    .xColumn = &ReadColumn,
    .xRowid = &RowId,
    .xUpdate = nullptr,
    .xBegin = nullptr,
    .xSync = nullptr,
    .xCommit = nullptr,
    .xRollback = nullptr,
    .xFindFunction = nullptr,
    .xRename = nullptr,
    .xSavepoint = nullptr,
    .xRelease = nullptr,
    .xRollbackTo = nullptr,
    .xShadowName = nullptr,
};

}  // namespace

void RegisterGroupsTable(sqlite3* connection, GroupsTableState& state) {
  sqlite3_create_module_v2(connection, kGroupsTable, &kModule, &state, nullptr);
}

}  // namespace salerpt::tsql
