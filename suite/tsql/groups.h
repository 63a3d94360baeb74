// Grouping outside SQLite, and the table through which SQLite reads the groups back.
#pragma once

#include <sqlite3.h>

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include "suite/tsql/decimal.h"
#include "suite/tsql/plan.h"

namespace salerpt::tsql {

// A cell of a key, of a minimum or of a finished group. Texts lie in the arena of their Groups.
struct Cell {
  enum class Kind : std::uint8_t { kNull, kInteger, kDouble, kText };
  Kind kind = Kind::kNull;
  std::uint32_t size = 0;  // of the text
  union {
    std::int64_t integer = 0;
    double number;
    const char* text;
  };

  [[nodiscard]] std::string_view Text() const { return {text, size}; }
};

// Rows that arrive in any order become groups at the finest level; the levels above, where the plan is a
// rollup, are added up from those.
class Groups {
 public:
  explicit Groups(const GroupPlan& plan);

  // Takes the current row of the base statement.
  void Add(sqlite3_stmt* row);
  // Sorts the groups by their keys and makes the rows. In a rollup each level's row stands behind the rows
  // that it sums, the total last. No row when none was added.
  void Finish();

  [[nodiscard]] std::size_t RowCount() const { return kept_keys_.size(); }
  [[nodiscard]] std::size_t ColumnCount() const { return 2 * key_count_ + aggregates_.size(); }
  // The columns of a row: the keys, a GROUPING flag for each key, the aggregates.
  [[nodiscard]] Cell At(std::size_t row, std::size_t column) const;

 private:
  // The state of one aggregate of one group. A decimal sum, a float sum or a cell lies in the same sixteen
  // bytes.
  struct Accumulator {
    Int128 state = 0;
    std::int64_t count = 0;  // values that were not null
  };
  struct FloatSum {
    double sum;
    double rest;  // what the sum lost, so far
  };

  std::size_t FindGroup();
  void Grow();
  void Accumulate(Accumulator& into, std::size_t aggregate, sqlite3_stmt* row);
  static void Merge(Accumulator& into, const AggregateSpec& spec, const Accumulator& from);
  void MergeAll(Accumulator* into, const Accumulator* from) const;
  [[nodiscard]] Cell Result(std::size_t aggregate, const Accumulator& from) const;
  [[nodiscard]] std::vector<std::uint32_t> SortedGroups() const;
  void EmitLevels(const std::vector<std::uint32_t>& order);
  void EmitRow(const Cell* keys, std::size_t kept_keys, const Accumulator* accumulators);
  Cell ReadCell(sqlite3_stmt* row, int column) const;
  Cell Keep(Cell cell);

  static void AddFloat(Accumulator& into, double value);
  // Keeps the lesser or greater of two cells.
  static bool Replaces(const AggregateSpec& spec, const Accumulator& into, const Cell& cell);

  bool rollup_;
  std::size_t key_count_;
  std::vector<AggregateSpec> aggregates_;
  std::vector<DecimalScale> scales_;  // aggregate by aggregate

  std::vector<Cell> current_;              // keys of the row that is being added
  std::vector<Cell> keys_;                 // group by group
  std::vector<std::uint64_t> hashes_;      // group by group
  std::vector<Accumulator> accumulators_;  // group by group
  std::vector<std::uint32_t> slots_;       // hash table of group numbers + 1
  std::size_t group_count_ = 0;

  std::deque<std::string> arena_;  // blocks that never move
  std::size_t arena_free_ = 0;
  std::vector<Cell> rows_;                // keys and aggregates of the finished rows
  std::vector<std::uint16_t> kept_keys_;  // of each: how many keys are not rolled up
};

// The groups that the table shows at the moment.
struct GroupsTableState {
  const Groups* groups = nullptr;
};

// Registers the table `kGroupsTable`, whose columns c0, c1, … are those of the current groups.
void RegisterGroupsTable(sqlite3* connection, GroupsTableState& state);

}  // namespace salerpt::tsql
