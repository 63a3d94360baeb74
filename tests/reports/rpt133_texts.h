// The texts of the customer sales summary's batch, as the server is to get them.
#pragma once

#include "tests/reports/expected_text.h"

namespace salerpt::testing {

// Pieces of an expected request, with audited invoices (STATE), no data right (TAIL) and no condition
// (CONDITION):
// COLUMNS   the column definitions of #DATA
// VALUES    the value list of the insert
// FROM, WHERE   the tables in comma form and what holds them together; behind the invoices JOINS, which is
//               nothing, or PEOPLE, the joins of departments and employees, where the report reads them
// ITEMFIELD     the field that spares rows of #ItemLevel
// ONLYTOTALS    what leaves the final select with total rows alone
const Pieces& Rpt133Pieces();

}  // namespace salerpt::testing
