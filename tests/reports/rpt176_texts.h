// The long texts of the gross profit report's batch, as the server is to get them.
#pragma once

#include "tests/reports/expected_text.h"

namespace salerpt::testing {

// Pieces of an expected request, for invoices that are matched with what went out (QTY, COSTQTY, INCOME,
// STATE, STOCK), actual cost (STOCKCOST, PURCHASECOST), the first quarter of 2003 (DATE), no condition
// (ITEM), every sale style (SALE, PURCHASE), and no data right (TAIL): FILL       #Data2 and its three
// inserts COLUMNS    the column definitions of #Data VALUES     the value list of its insert FROM       the
// joins of its insert; PARTY is the table behind t2 SUPPLIER   a further join of the stock half RATE the last
// column of the rows
const Pieces& Rpt176Pieces();

}  // namespace salerpt::testing
