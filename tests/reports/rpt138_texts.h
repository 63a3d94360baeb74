// The texts of the order execution summary's batch, as the server is to get them.
#pragma once

#include "tests/reports/expected_text.h"

namespace salerpt::testing {

// Pieces of an expected request, with audited orders (STATE; STATEDELIVERED for the deliveries), the first
// quarter of 2003 (DATE) and no condition (ITEM):
// COLUMNS   the column definitions of #DATA
// VALUES    the value list of the insert
// WORK      #DATA2 and its three inserts: CREATEWORK, ORDERS, STOCKBILLS, INVOICES; by a field of the order
//           head WORKBY with FIELD, which deliveries by stock bill carry under STOCKFIELD
// FROM      the joins of the sum, BRANCHFROM with the branch company; by a field of the order head FROMBY,
//           on TABLE and its KEY
// WHERE     what holds them together; BRANCHBOUND behind it
const Pieces& Rpt138Pieces();

}  // namespace salerpt::testing
