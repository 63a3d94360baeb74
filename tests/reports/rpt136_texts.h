// The texts of the order statistics' batch, as the server is to get them.
#pragma once

#include "tests/reports/expected_text.h"

namespace salerpt::testing {

// Pieces of an expected request, with base currency of two decimals (D), signed orders (STATE), the first
// quarter of 2003 (DATE), no condition (ITEM), no data right (TAIL):
// COLUMNS  the column definitions of #DATA; CURRENCYCOLUMNS those that stand before them by currency
// COMMON   the names of COLUMNS but the identity's; CURRENCYCOMMON those of CURRENCYCOLUMNS
// VALUES   the value list of the insert
// FROM, WHERE   the joins, and what every order line of the report meets
// ITEMFILTER    what spares rows of #ItemLevel, on ITEMFIELD, which is still open
// DECIMALS      gives each row by currency the decimals of its currency
// ONLYTOTALS, ONLYSUM   what leaves the final select with total rows alone, and the key that tells it
const Pieces& Rpt136Pieces();

}  // namespace salerpt::testing
