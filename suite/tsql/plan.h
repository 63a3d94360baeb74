// What a statement becomes: SQLite statements and what to do around them.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "suite/tsql/catalog.h"
#include "suite/tsql/session.h"

namespace salerpt::tsql {

enum class AggregateKind : std::uint8_t { kSumInteger, kSumScaled, kSumFloat, kCount, kMin, kMax };

// One aggregate over a column of the base rows.
struct AggregateSpec {
  AggregateKind kind = AggregateKind::kCount;
  int argument = -1;  // column of the base statement behind the keys; -1: count(*)
  ColumnType type;    // of the argument
};

// A GROUP BY, with or without ROLLUP: the base statement gives keys and arguments row by row; the grouping
// itself is done outside SQLite, which would sort the rows first, and its rows are read back through the
// table of groups, whose columns are the keys, one GROUPING flag a key, and the aggregates.
struct GroupPlan {
  bool rollup = false;
  std::string base_sql;
  std::vector<ColumnType> keys;
  std::vector<std::string> arguments;  // SQL, as they stand in the base statement
  std::vector<AggregateSpec> aggregates;
};

// An index that makes a correlated lookup on a temporary table cheap.
struct IndexRequest {
  std::string table_sql;
  std::string table_name;
  std::vector<std::string> columns;
};

enum class PlanKind : std::uint8_t {
  kRows,    // rows go to the sink
  kAssign,  // the last row goes into variables
  kChange,  // rows are written; the change count becomes @@ROWCOUNT
  kInto,    // kChange into a table that is made first
};

struct Plan {
  PlanKind kind = PlanKind::kRows;
  std::string sql;
  std::vector<Column> columns;   // of kRows
  std::vector<int> variables;    // of kAssign: a variable for each column
  bool writes_identity = false;  // kChange: an insert into a table with an identity column
  std::optional<GroupPlan> groups;
  std::vector<IndexRequest> indexes;
  TableInfo into;                         // of kInto
  std::vector<std::string> into_indexes;  // columns of it that get an index
  std::string target;                     // of kChange: the table's name for messages
};

// The table-valued reader of groups, registered on the connection.
inline constexpr const char* kGroupsTable = "salerpt_groups";
// As many as SQLite lets a table have.
inline constexpr int kMaxGroupColumns = 2000;

}  // namespace salerpt::tsql
