// The rows that pass a filter, found as they are asked for.
#pragma once

#include <cstdint>
#include <vector>

#include "runtime/row_filter.h"
#include "runtime/row_index.h"
#include "runtime/row_store.h"

namespace salerpt {

// Row numbers in row order, from an index chain or from a scan. Rows appended later are found too; `end` is
// always the number of rows that stand, a row being built not among them.
class FilteredRows {
 public:
  explicit FilteredRows(const RowStore& rows) : rows_(rows) {}

  // Begins anew. `index` is over the filter's key columns, or nothing for a scan. Both outlive the use.
  void Start(const RowFilter* filter, RowIndex* index);
  // Row at a place among the passing ones, from 0; RowIndex::kNoRow where fewer pass.
  [[nodiscard]] std::int32_t At(std::int32_t place, std::int32_t end) {
    while (static_cast<std::size_t>(place) >= found_.size()) {
      if (!FindNext(end)) return RowIndex::kNoRow;
    }
    return found_[static_cast<std::size_t>(place)];
  }
  [[nodiscard]] std::int32_t Count(std::int32_t end) {
    while (FindNext(end)) {
    }
    return static_cast<std::int32_t>(found_.size());
  }
  // Lets the index go: finds all rows before `end`; those appended later are found by scan.
  void LeaveIndex(std::int32_t end);
  [[nodiscard]] bool UsesIndex(const RowIndex& index) const { return index_ == &index; }

 private:
  bool FindNext(std::int32_t end) { return index_ != nullptr ? FollowChain(end) : Scan(end); }
  bool FollowChain(std::int32_t end);
  bool Scan(std::int32_t end);

  const RowStore& rows_;
  const RowFilter* filter_ = nullptr;
  RowIndex* index_ = nullptr;
  std::vector<std::int32_t> found_;
  // Last row of the chain that was tested.
  std::int32_t tested_ = RowIndex::kNoRow;
  // Next row to scan.
  std::int32_t next_ = 0;
};

}  // namespace salerpt
