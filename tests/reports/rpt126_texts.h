// The texts of the income statistics' batch, as the server is to get them.
#pragma once

#include <string>
#include <string_view>

#include "tests/reports/expected_text.h"

namespace salerpt::testing {

// Pieces of an expected request, with base currency of two decimals (D), audited invoices of both colours
// (STATE), no data right (TAIL), no condition (CONDITION), every amount in the base currency and no auxiliary
// property:
// COLUMNS   the column definitions of #Data; before the item code AUXCOLUMNS, behind the amounts
//           CURRENCYCOLUMNS
// VALUES    the value list of the insert; the bill's amounts are AMOUNT and TAX, rounded to SCALE, and
//           CURRENCYVALUES stand behind them
// FROM, WHERE   the joins, and what every invoice of the report meets
// ITEMFIELD   the field that spares rows of #ItemLevel
// ONLYTOTALS  what leaves the final select with total rows alone
const Pieces& Rpt126Pieces();

// What the choice "by currency" changes in an invoice's amounts.
Pieces BillCurrency();
// What the choice "by auxiliary property" changes in the columns.
Pieces AuxiliaryColumns();

// The text as the server reads it: blanks and line ends as one blank, none beside brackets and commas, no
// capitals. For texts in which only the words are settled.
std::string AsTheServerReads(std::string_view text);

}  // namespace salerpt::testing
