// What a span of class levels adds to a batch of the outbound summary.
#pragma once

#include <cstdint>
#include <vector>

#include "tests/reports/expected_text.h"

namespace salerpt::testing {

// Levels `begin` to `end`, and their pieces:
// DEFS, NAMES, CASES, LABELS   column definitions, group columns, row codes, labels of subtotals
// ONLYNAMES   the columns' names, each with a comma behind; LISTED the same as a column list has them
// FIRST, FIRSTCODE   the column and the row code that the grand total goes by
// NEXT, BEHIND       the two row codes behind those of the levels
// LEVELTABLE         #ItemLevel of class CLASS in the code range RANGE
struct LevelSpan {
  std::int32_t begin;
  std::int32_t end;
  Pieces pieces;
};

// One level, two levels, and two that begin below the first.
const std::vector<LevelSpan>& LevelSpans();

}  // namespace salerpt::testing
