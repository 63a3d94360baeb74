// The texts of the fee invoice summary's batch, as the server is to get them.
#pragma once

#include "tests/reports/expected_text.h"

namespace salerpt::testing {

// Pieces of an expected request:
// COLUMNS     the column definitions of #DATA
// VALUES      the value list of the insert
// FROM, WHERE the joins, and what every row meets
// ITEMFILTER  what spares rows of #ItemLevel, by ITEMFIELD; its bracket stays open
// ONLYTOTALS  what leaves the final select with total rows alone
const Pieces& Rpt301Pieces();

}  // namespace salerpt::testing
