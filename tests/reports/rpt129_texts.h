// The long texts of the outbound detail's batch, as the server is to get them.
#pragma once

#include "tests/reports/expected_text.h"

namespace salerpt::testing {

// Pieces of an expected request, with base currency of two decimals (D), audited bills of both colours
// (STOCK, STATE), the first quarter of 2003 (DATE), no condition (ITEM) and no data right (TAIL):
// FILL     #DATA2 and its two inserts
// VALUES   the value list of the insert line by line
// FROM     the joins of the insert
// APPEND   names and units from the item master, then the four sections; each section stands between its
//          marks, such as ITEMOPEN and ITEMCLOSE: as they are stored, they make a comment of it
// NAMES    the first statement of APPEND; ITEMSECTION its first section
const Pieces& Rpt129Pieces();

// What opens a section: a blank for each mark.
Pieces OpenItemSection();
Pieces OpenDateSections();
Pieces OpenTotalWithoutDates();
Pieces Both(Pieces pieces, const Pieces& more);

}  // namespace salerpt::testing
