// The texts of the frames over the order tracking's work table, as the server is to get them.
#pragma once

#include "tests/reports/expected_text.h"

namespace salerpt::testing {

// Pieces of the expected frames, without a condition (CONDITION):
// COLUMNS   the column definitions of #DATA, which tell in comments what each quantity is
// VALUES    the value list of the insert
// FROM, WHERE   the joins and what holds them together
// ROLLUP    the clause that leaves leaf rows and the grand total
const Pieces& Rpt139Pieces();

}  // namespace salerpt::testing
