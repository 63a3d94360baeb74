// The invoiced lines of a period.
#pragma once

#include <cstdint>
#include <string>

#include "runtime/dictionary.h"

namespace salerpt::middletier {

// An accounting period. Periods are natural months, twelve to a year.
struct Period {
  std::int32_t year;    // 1753 to 9999, the years that the server's dates know
  std::int32_t period;  // 1 to 12
};

// The select of every invoiced line of a period: lines of sales invoices of kinds 80 (special) and 86
// (plain), ordered by date, bill and line. Its columns are the fields that the sales income detail reads:
//   FInterID, FEntryID, FTranType, FDate, FBillNo, FNote   of the invoice
//   FVoucherNo                     group and number of its voucher, "记-12"; empty where it has none
//   FItemID, FNumber, FShortNumber, FName, FModel, FQtyDecimal, FPriceDecimal   of the item
//   FUnitName, FQty                the item's base unit and the quantity in it
//   FAmount                        sales income without tax in base currency, rounded to `scale` decimals: a
//   special
//                                  invoice's amount holds no tax, a plain one's does, so the tax is taken off
//   FPrice                         FAmount by FQty, 0 where the quantity is 0: as the total rows count it
// `filter` narrows the lines: the ranges "BItemNumber" to "EItemNumber" (item), "BEmpNumber" (employee),
// "BDptNumber" (department), "BCustNumber" (customer), an empty or absent end being open, on the long code
// where "bLongNumber" is true and on the short one otherwise; "CheckState" 0 audited, 1 not audited, else
// both, cancelled bills never; the joins of "DataRightFrom" and the condition of "DataRightWhere", in which
// T4 is the customer. Raises invalid-call for a year or period that is none, and what a value of the wrong
// kind raises.
std::string SaleLinesSql(Period period, const Dictionary& filter, std::int16_t scale);

}  // namespace salerpt::middletier
