// The lists of sales lines by customer.
#pragma once

#include "runtime/dictionary.h"
#include "runtime/recordset.h"
#include "suite/middletier/server.h"

namespace salerpt::middletier {

// One row for each line of the sales invoices of kinds 80 (special) and 86 (plain) that a filter lets
// through, and a last row with their sums, where there are lines. "RptID" of the filter names the list: 134
// all sales, by date, bill and line; 135 the returns, lines of red invoices, with the sign that they have
// there, by customer code, date, bill and line. The columns:
//   Fdate, FBillNo, FExchangeRate                 of the invoice
//   FCustNumber, FCustShortNumber, FCustName      of its customer; "合计" in both codes of the last row
//   FNumber, FShortNumber, FName, FModel, FQtyDecimal, FPriceDecimal   of the item
//   FAuxPropName                                  the auxiliary property; only where "AuxProp" is 1
//   FAuxUnitName, FAuxQty                         the line's unit and the quantity in it
//   FUnitName, FQty                               the item's base unit and the quantity in it
//   FCUUnitName, FCUUnitQty                       the item's common unit and the quantity in it
//   FCurrencyName, FAmount                        sales income without tax in the bill's currency, rounded to
//                                                 that currency's scale: a special invoice's amount holds no
//                                                 tax, a plain one's does. Null in the last row where it sums
//                                                 several currencies
//   FAmountFor                                    the same in base currency, by the bill's exchange rate,
//                                                 rounded to the base currency's scale
//   FSumSort                                      0; 101 in the last row
// The filter: "BDate" to "EDate"; "BItemNumber" to "EItemNumber" and "BCustNumber" to "ECustNumber", on the
// long code where "bLongNumber" is true and on the short one otherwise, an empty or absent end being open;
// "CheckState" 0 audited, 1 not audited, else both, cancelled bills never; "SaleType" above 1 one sale style;
// "HookStatus" 0 not matched, 2 matched, -1 or absent all; "CommodityType" 1 services, 2 all but services;
// the joins of "DataRightFrom" and the condition of "DataRightWhere", in which t1 is the customer. Raises
// invalid-call for another "RptID" or a missing date, and what a value of the wrong kind raises.
RecordsetRef CustomerSales(Server& server, const Dictionary& filter);

}  // namespace salerpt::middletier
