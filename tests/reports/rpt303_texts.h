// The texts of the consignment and instalment lists' batch, as the server is to get them.
#pragma once

#include "tests/reports/expected_text.h"

namespace salerpt::testing {

// Pieces of an expected request, with base currency of two decimals (D), no data right (TAIL) and no
// condition (CONDITION): COLUMNS     the column definitions of #DATA LIST        the names of those that an
// insert by batch fills VALUES      the value list of the insert FROM, WHERE the joins, and what every row
// meets ITEMFIELD   the field that spares rows of #ItemLevel ONLYTOTALS  what leaves the final select with
// total rows alone
const Pieces& Rpt303Pieces();

}  // namespace salerpt::testing
