// The tracking of orders: what of each line is delivered, invoiced and paid, and the deposits of the order.
#pragma once

#include "runtime/dictionary.h"
#include "runtime/recordset.h"
#include "suite/middletier/server.h"

namespace salerpt::middletier {

// One row for each order line that the filter lets through, a subtotal behind each order (FSumSort 102,
// "(小计)" behind FBillNo) where "chkIsShowSum" is 1, and a total (FSumSort 101, "合计" in FBillNo) where
// there is any line. "chkIsShowDetail" 0 leaves the lines out. The columns, in this order:
//   FInterID, FItemID, FTranType, FSumSort, FDate, FSendDate (to be delivered)
//   FBillNo, FCustNumber, FCustName, FExplanation, FItemNumber, FItemName, FModel, FAuxPropName, FUnitName,
//   FCurrencyName, FDeptNumber, FDeptName, FEmpNumber, FEmpName, FNote   codes are those in use
//   FExchangeRate                                        of the order
//   FOrderQty, FOrderPriceFor, FOrderPrice               in the unit of the line; prices with tax
//   FOutQty, FNotOutQty, FInvoiceQty, FNotInvoiceQty     delivered, not delivered, invoiced, delivered and
//   not
//                                                        invoiced, in that unit
//   FOrderAmountFor, FOrderAmount, FInvoiceAmountFor, FInvoiceAmount    with tax
//   FReceiveAmount                                       what was received for these invoices
//   FOrderNotReceiveAmount, FInvoiceNotReceiveAmount     what was ordered, or invoiced, and is not paid
//   FOrderDepositFor, FOrderDeposit, FOrderPrePayAmountFor, FOrderPrePayAmount
//                  of the whole order: the same in each of its lines, once in its subtotal and in the total
// "…For" is in the currency of the order. All other amounts are in base currency, rounded to its scale: what
// was ordered at the rate of the order, invoices and receipts as they were booked. What is not received of an
// order is reckoned in its currency and brought over at its rate, so that an order that is paid leaves
// nothing open when rates have moved. Amounts of several currencies are not added: "…For" is null in a total
// over such. Prices and the rate are null where rows are summed, but for the rate of an order's subtotal.
// Invoices that are audited and not cancelled count; deliveries as in order_lines.h. The filter:
//   "BDate", "EDate"              days of the order
//   "BItemNumber", "BCustNumber", "BDept", "BEmp" and their "E…"   codes, long ones where "bLongNumber" is
//                                 true; an end that is absent or empty is open
//   "BBillNo", "EBillNo"          numbers of orders
//   "CheckState"                  0 audited, 1 not audited, else both; cancelled orders never
//   "CloseState"                  1 open orders, 2 closed ones, else both
//   "SaleType"                    one sale style above 1
//   "CommodityType"               1 services, 2 all but services, else all
//   "chkIsShowSum"                see above; absent: 0
//   "chkIsShowDetail"             see above; absent: 1
//   "Orderby"                     FOrderbyDate, FOrderbyBillNo, FOrderbyCustNumber, FOrderbyDeptNumber and
//                                 FOrderbyEmpNumber, each with ASC or DESC behind it or neither, parted by
//                                 commas. FNumber or FShortNumber, the order of a plan that never chose one,
//                                 orders the lines within their order. Then by date, number and line.
//   "UserID"                      the customers that this user may see, where the rule is in force for him
//   "DataRightFrom", "DataRightWhere"   further joins and a condition; t11 is the customer
// Raises invalid-call for a missing day and for an order by anything else, what a value of the wrong kind
// raises, and the engine's errors.
RecordsetRef OrderReceipts(Server& server, const Dictionary& filter);

}  // namespace salerpt::middletier
