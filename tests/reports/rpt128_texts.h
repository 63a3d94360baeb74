// The long texts of the outbound summary's batch, as the server is to get them.
#pragma once

#include "tests/reports/expected_text.h"

namespace salerpt::testing {

// Pieces of an expected request, with base currency of two decimals (D), audited bills of both colours
// (STOCK, STATE), the first quarter of 2003 (DATE), no condition (ITEM), no data right (TAIL), and no extra
// column in #DATA2 (OTHERCOL, COLNAME, COLVALUE, JOINTABLE):
// COLUMNS  the column definitions of #DATA
// COMMON   their names but the identity's; LIST: the same with the one blank before that a column list keeps,
//          to be told anew where group columns stand before them
// VALUES   the value list of the insert
// FROM     the joins of the insert
// UPDATE   the quantities and amounts not invoiced, on TABLE, which is #DATA
// FILL     #DATA2 and its two inserts
// RESORT, RESORTPEOPLE   the re-sort pass without its drops, by ORDER, which a test gives
const Pieces& Rpt128Pieces();

}  // namespace salerpt::testing
